#include "Settings.h"

#include "Texts.h"

#include <QSettings>

namespace Settings {

QSettings &store()
{
    // Native format: ~/.config/Quillo/Quillo.conf (honours XDG_CONFIG_HOME).
    static QSettings settings(QSettings::NativeFormat, QSettings::UserScope,
                              QStringLiteral("Quillo"), QStringLiteral("Quillo"));
    return settings;
}

bool contains(const char *key)
{
    return store().contains(QLatin1String(key));
}

QVariant value(const char *key)
{
    const SettingInfo *info = findSettingInfo(key);
    const QVariant fallback = info ? info->whenAbsent : QVariant();
    return store().value(QLatin1String(key), fallback);
}

bool boolValue(const char *key)
{
    return value(key).toBool();
}

int intValue(const char *key)
{
    bool ok = false;
    const int v = value(key).toInt(&ok);
    return ok ? v : 0;
}

QString stringValue(const char *key)
{
    const QVariant v = value(key);
    return v.isNull() ? QString() : v.toString();
}

QStringList stringList(const char *key)
{
    const QVariant v = value(key);
    // An empty list is stored as an empty string by the INI writer.
    if (v.typeId() == QMetaType::QString)
        return v.toString().isEmpty() ? QStringList() : QStringList{v.toString()};
    return v.toStringList();
}

void setValue(const char *key, const QVariant &v)
{
    store().setValue(QLatin1String(key), v);
    store().sync();
}

void setValues(std::initializer_list<std::pair<const char *, QVariant>> values)
{
    for (const auto &[key, v] : values)
        store().setValue(QLatin1String(key), v);
    store().sync();
}

void remove(const char *key)
{
    store().remove(QLatin1String(key));
    store().sync();
}

void resetAll()
{
    store().clear();
    store().sync();
}

bool runLaunchSettingsWork()
{
    const bool firstLaunch = !boolValue(Key::AppOpened);
    if (firstLaunch) {
        resetAll();
        setValues({{Key::Method, 1},
                   {Key::Output, 1},
                   {Key::AppOpened, true},
                   {Key::Hotkey, true},
                   {Key::ToggleHotkeyFirstRun, true},
                   {Key::HotkeyPrefTitle, Texts::checked(Texts::Hotkeys)},
                   {Key::SplashScreen, true}});
        setValue(Key::URLArray, QStringList());
    }
    setValues({{Key::ShotFromPC, true}, {Key::Pasted, false}});
    return firstLaunch;
}

QString filePath()
{
    return store().fileName();
}

}  // namespace Settings
