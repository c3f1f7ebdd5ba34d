// The colouring passes: titles and menu items take their colour from the current
// choices and switches.
#include "PanelController.h"

#include "HoverButton.h"
#include "HoverPopUp.h"
#include "LiveSettings.h"
#include "Settings.h"
#include "Theme.h"
#include "ui_Panel.h"

void PanelController::colorizeButtons()
{
    const LiveSettings &live = LiveSettings::shared();
    for (int n = 1; n <= 3; ++n)
        if (HoverButtonMatrix *button = methodButton(n))
            Theme::colorButtonTitle(button, live.methodLatch[n - 1], false);
}

void PanelController::colorizeButtons2()
{
    const LiveSettings &live = LiveSettings::shared();
    for (int n = 1; n <= 3; ++n)
        if (HoverButtonMatrix *button = outputButton(n))
            Theme::colorButtonTitle(button, live.outputLatch[n - 1], true);
}

void PanelController::colorizePrefs()
{
    if (!m_ui)
        return;
    const LiveSettings &live = LiveSettings::shared();
    const bool on[] = {live.customPathEnabled, live.customAppEnabled, live.hotkeysEnabled,
                       live.loginItemEnabled, live.shadowsEnabled, false, false};
    for (int tag = 1; tag <= 7; ++tag)
        Theme::colorMenuItem(m_ui->popUpPrefs, m_ui->popUpPrefs->findData(tag), on[tag - 1]);
}
