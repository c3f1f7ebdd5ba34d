// Capture options, the capture run and what happens to the file afterwards.
#include "PanelController.h"

#include "ApplicationHub.h"
#include "Artwork.h"
#include "CaptureRequest.h"
#include "CaptureRunner.h"
#include "FileLabel.h"
#include "FileUrl.h"
#include "HoverButton.h"
#include "HoverPopUp.h"
#include "LiveSettings.h"
#include "NotificationCenter.h"
#include "OutputLauncher.h"
#include "RWColorWell.h"
#include "Settings.h"
#include "Texts.h"
#include "UploadProgress.h"
#include "UploadSession.h"
#include "VYTextField.h"
#include "ui_Panel.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QTimer>

namespace {

QString desktopFolder()
{
    QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    if (desktop.isEmpty())
        desktop = QDir::homePath();
    QDir().mkpath(desktop);
    return desktop.endsWith(QLatin1Char('/')) ? desktop : desktop + QLatin1Char('/');
}

QString tempFolder()
{
    const QString temp = QDir::tempPath();
    return temp.endsWith(QLatin1Char('/')) ? temp : temp + QLatin1Char('/');
}

const QString kMethodFlags[] = {QStringLiteral("-i"), QStringLiteral("-w"), QString()};

}  // namespace

void PanelController::method1() { selectMethod(1); }
void PanelController::method2() { selectMethod(2); }
void PanelController::method3() { selectMethod(3); }
void PanelController::output1() { selectOutput(1); }
void PanelController::output2() { selectOutput(2); }
void PanelController::output3() { selectOutput(3); }

void PanelController::selectMethod(int n)
{
    LiveSettings &live = LiveSettings::shared();
    if (!live.methodLatch[n - 1]) {
        for (int i = 1; i <= 3; ++i)
            if (HoverButtonMatrix *button = methodButton(i))
                button->setImageName(i == n ? QStringLiteral("butt2") : QStringLiteral("butt0"));
        live.captureMethodFlag = kMethodFlags[n - 1];
        live.methodLatch = {};
        live.methodLatch[n - 1] = true;
    }
    colorizeButtons();
    Settings::setValue(Key::Method, n);
}

void PanelController::selectOutput(int n)
{
    if (!LiveSettings::shared().outputLatch[n - 1])
        applyOutput(n);
    colorizeButtons2();
    Settings::setValue(Key::Output, n);
}

void PanelController::applyOutput(int n)
{
    LiveSettings &live = LiveSettings::shared();
    for (int i = 1; i <= 3; ++i)
        if (HoverButtonMatrix *button = outputButton(i))
            button->setImageName(i == n ? QStringLiteral("butt3") : QStringLiteral("butt0"));
    const bool named = m_ui && !m_ui->textShotName->text().isEmpty();
    live.selectedOutput = n;
    live.outputOptionSlot.clear();
    if (m_ui) {
        const bool saving = n == 1;
        m_ui->shade->setPixmap(Artwork::image(saving ? QStringLiteral("inactive_off") : QStringLiteral("inactive"),
                                              m_ui->shade->size(), m_ui->shade->devicePixelRatioF()));
        m_ui->colorLabelPopper->setEnabled(saving);
        QPalette palette = m_ui->textShotName->palette();
        palette.setColor(QPalette::Text, saving ? QColor::fromRgbF(0.4, 0.4, 0.4) : QColor(Qt::lightGray));
        m_ui->textShotName->setPalette(palette);
        m_ui->textShotName->setReadOnly(!saving);
        if (saving)
            m_ui->textShotName->end(false);
        if (named)
            m_ui->xButton->setAlphaValue(saving ? 100.0 : 0.4);
    }
    CaptureOutputAction();
    live.outputLatch = {};
    live.outputLatch[n - 1] = true;
}

void PanelController::CaptureOutputAction()
{
    const LiveSettings &live = LiveSettings::shared();
    Settings::setValue(Key::ToggleEdit, true);
    switch (live.selectedOutput) {
    case 1:
        setOutputLabel(live.customPathEnabled ? live.savePathLabel : Texts::SavesToDesktop);
        setLinkListEnabled(false);
        break;
    case 2: {
        const int items = m_ui ? m_ui->clipboardPopUp->count()
                               : 3 + int(Settings::stringList(Key::URLArray).size());
        if (items < 4) {
            setOutputLabel(Texts::ProducesURL);
            Settings::setValue(Key::ToggleEdit, false);
            setLinkListEnabled(false);
        } else {
            setOutputLabel(Texts::AccessURLList);
            setLinkListEnabled(true);
        }
        break;
    }
    case 3:
        setOutputLabel(live.appLabel);
        setLinkListEnabled(false);
        break;
    }
}

void PanelController::invisibleOutputButtonAction()
{
    LiveSettings &live = LiveSettings::shared();
    if (m_ui)
        m_ui->invisibleOutputButton->setImageName(QStringLiteral("edit_off"));
    if (live.selectedOutput == 1) {
        pathBrowserButtonAction();
        live.lastPrefsItem = 1;
        colorizePrefs();
    } else if (live.selectedOutput == 3) {
        pathAppBrowser();
        live.lastPrefsItem = 2;
        colorizePrefs();
    }
}

void PanelController::popUpAction()
{
    if (!m_ui)
        return;
    LiveSettings &live = LiveSettings::shared();
    live.captureFileFormat = m_ui->popUp->currentText();
    live.fileFormatMenuTag = m_ui->popUp->currentIndex() + 1;
    Settings::setValues({{Key::CaptureFileFormatFlag, true},
                         {Key::CaptureFileFormat, live.captureFileFormat},
                         {Key::CaptureFileFormatMenu, live.fileFormatMenuTag}});
}

void PanelController::xButtonAction()
{
    if (!m_ui)
        return;
    m_ui->textShotName->clear();
    m_ui->xButton->setAlphaValue(0.0);
}

void PanelController::textNotify()
{
    if (m_ui)
        m_ui->xButton->setAlphaValue(m_ui->textShotName->text().isEmpty() ? 0.0 : 100.0);
}

void PanelController::shootButton()
{
    LiveSettings &live = LiveSettings::shared();
    const QString typed = m_ui ? m_ui->textShotName->text() : QString();
    live.shotName = typed.isEmpty() ? Texts::DefaultShotName : typed;
    Settings::setValue(Key::ShotFromPC, true);
    ApplicationHub *hub = ApplicationHub::instance();
    if (!hub || !hub->uploadBlocked())
        quillo(live.shotName);
}

bool PanelController::captureRunning()
{
    return CaptureRunner::anyRunning();
}

void PanelController::quillo(const QString &name)
{
    // One capture at a time, and no second upload while one is still on its way (its panel
    // may have been closed with Escape): both would share the progress and its timers.
    const bool uploadBusy = LiveSettings::shared().selectedOutput == 2 && UploadSession::anyRunning();
    if (CaptureRunner::anyRunning() || uploadBusy) {
        QTimer::singleShot(0, this, &PanelController::workFinished);
        return;
    }
    LiveSettings &live = LiveSettings::shared();
    setHasActivePanel(false);
    if (live.tempFilePending)
        deletePreviousTempFile();

    QString folder;
    if (live.customPathEnabled && live.selectedOutput == 1) {
        live.customPath = FileUrl::pathFromStoredForm(live.customSavePath);
        if (!live.customPath.isEmpty() && QFileInfo(live.customPath).isDir()) {
            folder = live.customPath.endsWith(QLatin1Char('/')) ? live.customPath : live.customPath + QLatin1Char('/');
        } else {
            folder = desktopFolder();
            live.customPathEnabled = false;
            live.savePathLabel = Texts::SavesToDesktop;
            if (live.selectedOutput == 1)
                setOutputLabel(live.savePathLabel);
            setPrefsItemTitle(1, Texts::SetSavePath);
            Settings::setValue(Key::CustomPath, false);
        }
    } else if (live.selectedOutput == 2 || live.selectedOutput == 3) {
        folder = tempFolder();
    } else {
        folder = desktopFolder();
    }

    CaptureRequest request;
    request.methodFlag = live.captureMethodFlag;
    request.outputOptionSlot = live.outputOptionSlot;
    request.format = live.captureFileFormat.isEmpty() ? QStringLiteral("jpg") : live.captureFileFormat;
    request.shadows = live.shadowsEnabled;
    request.folder = folder;
    request.name = name;
    request.shotName = live.shotName;
    const CaptureFile file = CaptureNaming::chooseFile(request);
    live.lastShotPath = file.path;

    // What happens to the file is decided now: the panel may change while the grabber runs.
    const CaptureDisposition disposition{live.selectedOutput, live.finderLabelIndex};
    auto *runner = new CaptureRunner(this);
    connect(runner, &CaptureRunner::finished, this, [=](int exitCode) {
        runner->deleteLater();
        dispatchCapture(file.path, folder, file.plainName, disposition, exitCode);
    });
    runner->start(CaptureNaming::arguments(request, file.path));
}

void PanelController::dispatchCapture(const QString &path, const QString &folder, const QString &plainName,
                                      const CaptureDisposition &disposition, int exitCode)
{
    LiveSettings &live = LiveSettings::shared();
    const bool written = QFileInfo::exists(path);
    if (disposition.output == 3) {
        live.openFilePath = path;
        live.tempFileName = plainName;
        live.tempFileFolder = folder;
        live.tempFilePending = true;
        const QString entry = live.customAppEnabled ? FileUrl::pathFromStoredForm(live.customAppPath) : QString();
        if (!entry.isEmpty() && QFileInfo::exists(entry)) {
            if (written)
                OutputLauncher::openWithDesktopEntry(entry, path);
        } else {
            // No chosen application, or it has gone: the default viewer, and the choice is reset.
            resetOutputApp();
            if (written)
                OutputLauncher::openInDefaultViewer(path);
        }
        live.customAppPath = Settings::stringValue(Key::CustomAppPath);
    } else if (disposition.output == 2 && written) {
        live.pollTickCount = 0;
        uploadPercent().store(0.0);  // a failed upload leaves its value behind
        if (!m_pollTimer) {
            m_pollTimer = new QTimer(this);
            m_pollTimer->setInterval(1000 / 30);
            connect(m_pollTimer, &QTimer::timeout, this, &PanelController::counter);
        }
        m_pollTimer->start();
        m_uploadInFlight = true;
        curler(path);
        emit captureFinished(path, exitCode);
        return;  // workFinished follows when the upload has ended and its panel had its time
    } else if (disposition.output == 1 && written && disposition.labelIndex != QLatin1String("0")) {
        finderLabel(disposition.labelIndex);
    }
    emit captureFinished(written ? path : QString(), exitCode);
    emit workFinished();
}

void PanelController::counter()
{
    LiveSettings &live = LiveSettings::shared();
    if (uploadPercent().load() == 100.0) {
        m_pollTimer->stop();
        live.pollTickCount = 0;
        startLinger();
    }
    live.pollTickCount += 1;
    NotificationCenter::defaultCenter().post(Notifications::UploadProgress);
}

// The upload panel stays up for three ticks of a 1 s timer, then closes.
void PanelController::startLinger()
{
    if (ApplicationHub *hub = ApplicationHub::instance())
        hub->openUploadPanel();
    if (!m_lingerTimer) {
        m_lingerTimer = new QTimer(this);
        m_lingerTimer->setInterval(1000);
        connect(m_lingerTimer, &QTimer::timeout, this, &PanelController::counter2);
    }
    m_lingerTimer->start();
}

void PanelController::counter2()
{
    LiveSettings &live = LiveSettings::shared();
    if (live.pollTickCount >= 3.0) {
        if (ApplicationHub *hub = ApplicationHub::instance())
            hub->closeUploadPanel();
        m_lingerTimer->stop();
        finishIfIdle();
    }
    live.pollTickCount += 1;
}

// A silent capture's controller goes once its upload has ended and the panel has closed.
void PanelController::finishIfIdle()
{
    if (!m_uploadInFlight && !(m_lingerTimer && m_lingerTimer->isActive()))
        emit workFinished();
}

void PanelController::deletePreviousTempFile()
{
    LiveSettings &live = LiveSettings::shared();
    const QString previous = QDir(live.tempFileFolder).filePath(live.tempFileName);
    if (!live.tempFileName.isEmpty() && QFileInfo::exists(previous))
        QFile::moveToTrash(previous);
    live.tempFilePending = false;
}

void PanelController::finderLabel(const QString &labelIndex)
{
    FileLabel::apply(LiveSettings::shared().lastShotPath, labelIndex.toInt());
}

void PanelController::copyToClipboard(const QString &text)
{
    Settings::setValue(Key::Pasted, true);
    QGuiApplication::clipboard()->setText(text);
}

void PanelController::splashRevive()
{
    if (ApplicationHub *hub = ApplicationHub::instance())
        hub->splashWindow();
}

void PanelController::splashClose()
{
    if (ApplicationHub *hub = ApplicationHub::instance())
        hub->splashWindowClose();
}
