// The upload of a capture and the list of links it leaves behind.
#include "PanelController.h"

#include "ApplicationHub.h"
#include "HoverButton.h"
#include "LinkHistory.h"
#include "LinkListModel.h"
#include "LiveSettings.h"
#include "Settings.h"
#include "Texts.h"
#include "UploadProgress.h"
#include "UploadSession.h"
#include "ui_Panel.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QListView>
#include <QTimer>
#include <QUrl>

namespace {

LinkListModel *linkModel(QComboBox *popUp)
{
    return popUp ? qobject_cast<LinkListModel *>(popUp->model()) : nullptr;
}

// Links in the list carry no scheme unless shortening failed and the image's own link was kept.
QUrl linkUrl(const QString &link)
{
    const bool hasScheme = link.startsWith(QLatin1String("http://")) || link.startsWith(QLatin1String("https://"));
    return QUrl(hasScheme ? link : QStringLiteral("http://") + link);
}

}  // namespace

void PanelController::setUpLinkList()
{
    auto *model = new LinkListModel(m_ui->clipboardPopUp);
    m_ui->clipboardPopUp->setModel(model);
    if (auto *view = qobject_cast<QListView *>(m_ui->clipboardPopUp->view())) {
        view->setUniformItemSizes(true);
        // Row 0 is the pop-up's own title item.
        connect(model, &QAbstractItemModel::modelReset, view, [view] { view->setRowHidden(0, true); });
        view->setRowHidden(0, true);
    }
}

void PanelController::curler(const QString &path)
{
    auto *session = new UploadSession(this);
    connect(session, &UploadSession::finished, this, [this, session](const UploadOutcome &outcome) {
        session->deleteLater();
        uploadFinished(outcome.ok, outcome.productLink);
    });
    if (!session->start(path)) {
        session->deleteLater();
        uploadFinished(false, QString());
    }
}

void PanelController::uploadFinished(bool ok, const QString &productLink)
{
    LiveSettings &live = LiveSettings::shared();
    m_uploadInFlight = false;
    const bool pollRunning = m_pollTimer && m_pollTimer->isActive();
    if (m_pollTimer)
        m_pollTimer->stop();
    if (!ok) {
        finishIfIdle();
        return;
    }
    copyToClipboard(productLink);
    buildListURLs();
    Settings::setValue(Key::ToggleEdit, true);
    setLinkListEnabled(true);
    setOutputLabel(Texts::AccessURLList);
    if (pollRunning) {
        // The transfer ended before a poll tick saw it at 100 %: let the panel linger now.
        live.pollTickCount = 1;
        startLinger();
    }
    uploadPercent().store(0.0);
    finishIfIdle();
}

void PanelController::buildListURLs()
{
    // The clipboard is asked only when a new link waits there: a stuck owner cannot hold us up.
    const QString pasted = Settings::boolValue(Key::Pasted) ? QGuiApplication::clipboard()->text() : QString();
    const QStringList links = LinkHistory::buildListURLs(pasted);
    if (LinkListModel *model = linkModel(clipboardPopUp()))
        model->setLinks(links);
    if (Settings::boolValue(Key::ShotFromPC))
        colorizeClipboardList();
}

void PanelController::colorizeClipboardList()
{
    if (LinkListModel *model = linkModel(clipboardPopUp()))
        model->setColourised(true);
}

void PanelController::clipboardPopUpAction(int index)
{
    LinkListModel *model = linkModel(clipboardPopUp());
    if (index == LinkListModel::CopyAllRow) {
        copyAllURLSToClipboard(LinkHistory::copyAllText(model ? model->links() : LinkHistory::links()));
    } else if (index == LinkListModel::ClearRow) {
        setOutputLabel(Texts::ProducesURL);
        LinkHistory::clear();
        setLinkListEnabled(false);
        buildListURLs();
    } else if (index >= LinkListModel::FirstLinkRow && model) {
        const QString link = model->linkAt(index);
        if (link.isEmpty())
            return;
        QDesktopServices::openUrl(linkUrl(link));
        copyToClipboard(link);
        Settings::setValue(Key::Pasted, false);
        setHasActivePanel(false);
        if (HoverButtonEdit *button = invisibleOutputButton())
            button->setImageName(QStringLiteral("edit_off"));
    }
}

void PanelController::copyAllURLSToClipboard(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}
