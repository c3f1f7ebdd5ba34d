#pragma once
// Every settings key of Quillo, with its type and the value it reads as while absent.
// The file is ~/.config/Quillo/Quillo.conf (QSettings, native format).

#include <QVariant>
#include <vector>

namespace Key {
// Application shell
inline constexpr char AppOpened[] = "app_opened";
inline constexpr char Method[] = "method";
inline constexpr char Output[] = "output";
inline constexpr char Hotkey[] = "hotkey";
inline constexpr char ToggleHotkeyFirstRun[] = "toggleHotkeyFirstRun";
inline constexpr char HotkeyPrefTitle[] = "hotkeypreftitle";
inline constexpr char SplashScreen[] = "splashscreen";
inline constexpr char URLArray[] = "URLArray";
inline constexpr char ShotFromPC[] = "shotFromPC";
inline constexpr char Pasted[] = "pasted";
inline constexpr char ToggleEdit[] = "toggleedit";
// Preferences
inline constexpr char StartupPrefTitle[] = "startuppreftitle";
inline constexpr char MethodShadow[] = "methodshadow";
inline constexpr char ShadowPrefTitle[] = "shadowpreftitle";
inline constexpr char CustomPath[] = "custompath";
inline constexpr char CustomPathSaved[] = "custompathsaved";
inline constexpr char CustomPathLabel[] = "custompathlabel";
inline constexpr char CustomPathPrefTitle[] = "custompathpreftitle";
inline constexpr char CustomApp[] = "customapp";
inline constexpr char CustomAppPath[] = "customapppath";
inline constexpr char CustomAppTitle[] = "customapptitle";
inline constexpr char CustomAppPrefLabel[] = "customapppreflabel";
inline constexpr char CaptureFileFormatFlag[] = "capturefileformatflag";
inline constexpr char CaptureFileFormat[] = "capturefileformat";
inline constexpr char CaptureFileFormatMenu[] = "capturefileformatmenu";
// Upload destinations
inline constexpr char Uploader[] = "uploader";
inline constexpr char ImageHostUrl[] = "imagehosturl";
inline constexpr char ImageHostKey[] = "imagehostkey";
inline constexpr char ShortenerUrl[] = "shortenerurl";
inline constexpr char LinkHost[] = "linkhost";
inline constexpr char UploadConnectTimeout[] = "uploadconnecttimeout";
inline constexpr char UploadStallTimeout[] = "uploadstalltimeout";
inline constexpr char UploadTotalTimeout[] = "uploadtotaltimeout";
inline constexpr char UploadAnswerLimit[] = "uploadanswerlimit";
}  // namespace Key

enum class SettingType { Bool, Int, String, StringList };

struct SettingInfo {
    const char *key;
    SettingType type;
    QVariant whenAbsent;  // what a read answers while the key was never written
};

// The whole table, in the order above.
const std::vector<SettingInfo> &settingInfos();
const SettingInfo *findSettingInfo(const char *key);
