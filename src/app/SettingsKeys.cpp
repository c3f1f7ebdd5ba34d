#include "SettingsKeys.h"

#include <QSettings>

#include <cstring>

namespace {
std::vector<SettingInfo> withShippedDefaults(std::vector<SettingInfo> infos)
{
    // Service endpoints are not written into the code: their defaults ship as a file.
    const QSettings shipped(QStringLiteral(":/defaults/settings.ini"), QSettings::IniFormat);
    for (SettingInfo &info : infos)
        if (shipped.contains(QLatin1String(info.key)))
            info.whenAbsent = shipped.value(QLatin1String(info.key));
    return infos;
}
}  // namespace

const std::vector<SettingInfo> &settingInfos()
{
    static const std::vector<SettingInfo> infos = withShippedDefaults({
        {Key::AppOpened, SettingType::Bool, false},
        {Key::Method, SettingType::Int, 0},
        {Key::Output, SettingType::Int, 0},
        {Key::Hotkey, SettingType::Bool, false},
        {Key::ToggleHotkeyFirstRun, SettingType::Bool, false},
        {Key::HotkeyPrefTitle, SettingType::String, QString()},
        {Key::SplashScreen, SettingType::Bool, false},
        {Key::URLArray, SettingType::StringList, QStringList()},
        {Key::ShotFromPC, SettingType::Bool, false},
        {Key::Pasted, SettingType::Bool, false},
        {Key::ToggleEdit, SettingType::Bool, false},
        {Key::StartupPrefTitle, SettingType::String, QString()},
        {Key::MethodShadow, SettingType::Bool, false},
        {Key::ShadowPrefTitle, SettingType::String, QString()},
        {Key::CustomPath, SettingType::Bool, false},
        {Key::CustomPathSaved, SettingType::String, QString()},
        {Key::CustomPathLabel, SettingType::String, QString()},
        {Key::CustomPathPrefTitle, SettingType::String, QString()},
        {Key::CustomApp, SettingType::Bool, false},
        {Key::CustomAppPath, SettingType::String, QString()},
        {Key::CustomAppTitle, SettingType::String, QString()},
        {Key::CustomAppPrefLabel, SettingType::String, QString()},
        {Key::CaptureFileFormatFlag, SettingType::Bool, false},
        {Key::CaptureFileFormat, SettingType::String, QString()},
        {Key::CaptureFileFormatMenu, SettingType::Int, 0},
        {Key::Uploader, SettingType::String, QString()},
        {Key::ImageHostUrl, SettingType::String, QString()},
        {Key::ImageHostKey, SettingType::String, QString()},
        {Key::ShortenerUrl, SettingType::String, QString()},
        {Key::LinkHost, SettingType::String, QString()},
        {Key::UploadConnectTimeout, SettingType::Int, 15},
        {Key::UploadStallTimeout, SettingType::Int, 30},
        {Key::UploadTotalTimeout, SettingType::Int, 600},
        {Key::UploadAnswerLimit, SettingType::Int, 1 << 20},
    });
    return infos;
}

const SettingInfo *findSettingInfo(const char *key)
{
    for (const SettingInfo &info : settingInfos())
        if (std::strcmp(info.key, key) == 0)
            return &info;
    return nullptr;
}
