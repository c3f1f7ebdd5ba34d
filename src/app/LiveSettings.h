#pragma once
// Process-wide capture and preference state. Every PanelController (the panel's own
// and the window-less one a silent capture makes) works on this one object.
// GUI thread only.

#include <QString>
#include <array>

struct LiveSettings {
    // Mirrors of the settings, filled by PanelController::userDefaults().
    QString captureFileFormat = QStringLiteral("jpg");
    int fileFormatMenuTag = 0;
    QString customSavePath;
    QString savePathLabel = QStringLiteral("Saves to Desktop");
    QString customAppPath;
    QString appLabel;
    bool customPathEnabled = false;
    bool customAppEnabled = false;
    bool hotkeysEnabled = false;
    bool loginItemEnabled = false;
    bool shadowsEnabled = false;
    int selectedOutput = 1;  // 1 save, 2 upload, 3 open in an application
    int lastPrefsItem = 1;
    bool pickerOpen = false;

    // Capture options.
    QString captureMethodFlag = QStringLiteral("-i");  // "-i", "-w" or "" (whole screen)
    QString outputOptionSlot;                          // always empty
    std::array<bool, 3> methodLatch{};
    std::array<bool, 3> outputLatch{};
    QString shotName;  // null until the shoot button is first used
    QString finderLabelIndex = QStringLiteral("0");

    // Capture run.
    QString customPath;
    QString lastShotPath;
    bool tempFilePending = false;
    QString tempFileName;
    QString tempFileFolder;
    QString openFilePath;
    double pollTickCount = 0;

    // Panel.
    bool panelInitialised = false;

    static LiveSettings &shared();
};
