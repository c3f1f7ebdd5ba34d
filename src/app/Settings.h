#pragma once
// Reads and writes Quillo's settings. Every write is followed by a sync, so another
// process (or a crash) never sees a stale file. Reads of absent keys answer the
// table's value (see SettingsKeys.h). GUI thread only.

#include "SettingsKeys.h"

#include <QStringList>
#include <QVariant>
#include <initializer_list>
#include <utility>

class QSettings;

namespace Settings {

QSettings &store();

bool contains(const char *key);
QVariant value(const char *key);
bool boolValue(const char *key);
int intValue(const char *key);
QString stringValue(const char *key);
QStringList stringList(const char *key);

void setValue(const char *key, const QVariant &value);
// Several writes followed by one sync.
void setValues(std::initializer_list<std::pair<const char *, QVariant>> values);
void remove(const char *key);

// Removes every key ("resetUserDefaults").
void resetAll();

// The first-launch block and the per-launch values (run once at start-up, in order):
// seeds the settings when app_opened is not set, then writes shotFromPC = YES and pasted = NO.
// Answers whether this was a first launch.
bool runLaunchSettingsWork();

QString filePath();

}  // namespace Settings
