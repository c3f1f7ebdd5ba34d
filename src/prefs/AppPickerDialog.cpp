#include "AppPickerDialog.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

AppPickerDialog::AppPickerDialog(const QList<CatalogueApp> &apps, QScreen *screen,
                                 const QString &currentEntryPath, QWidget *parent)
    : QDialog(parent), m_apps(apps), m_screen(screen ? screen : QGuiApplication::primaryScreen()),
      m_list(new QListWidget(this))
{
    setWindowTitle(QStringLiteral("Quillo"));
    auto *message = new QLabel(QStringLiteral("Set Output App"), this);
    m_list->setIconSize(QSize(24, 24));
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setSpacing(2);
    const QIcon fallback = QIcon::fromTheme(QStringLiteral("application-x-executable"),
                                            style()->standardIcon(QStyle::SP_FileIcon));
    for (const CatalogueApp &app : m_apps) {
        const QIcon icon = app.icon();
        auto *item = new QListWidgetItem(icon.isNull() ? fallback : icon, app.name, m_list);
        item->setToolTip(app.entryPath);
        if (!currentEntryPath.isEmpty() && app.entryPath == currentEntryPath)
            m_list->setCurrentItem(item);
    }
    if (!m_list->currentItem() && m_list->count() > 0)
        m_list->setCurrentRow(0);

    auto *buttons = new QDialogButtonBox(this);
    m_select = buttons->addButton(QStringLiteral("Select"), QDialogButtonBox::AcceptRole);
    buttons->addButton(QDialogButtonBox::Cancel);
    m_select->setDefault(true);
    m_select->setEnabled(m_list->currentItem() != nullptr);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::currentRowChanged, this,
            [this](int row) { m_select->setEnabled(row >= 0); });
    connect(m_list, &QListWidget::itemActivated, this, [this](QListWidgetItem *) { accept(); });

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(message);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    resize(360, 420);
    if (m_screen)
        setScreen(m_screen);
}

std::optional<CatalogueApp> AppPickerDialog::chosenApp() const
{
    const int row = m_list->currentRow();
    if (result() != QDialog::Accepted || row < 0 || row >= m_apps.size())
        return std::nullopt;
    return m_apps.at(row);
}

void AppPickerDialog::showEvent(QShowEvent *event)
{
    placeOnScreen();
    QDialog::showEvent(event);
}

void AppPickerDialog::placeOnScreen()
{
    if (!m_screen)
        return;
    // The framed window must fit: allow for a title bar before the frame is known.
    const QRect area = m_screen->availableGeometry().adjusted(8, 8, -8, -8);
    QSize frameExtra = frameGeometry().size() - geometry().size();
    frameExtra = frameExtra.expandedTo(QSize(8, 40));
    const QSize size = this->size().boundedTo(area.size() - frameExtra);
    resize(size);
    QRect target(QPoint(), size + frameExtra);
    target.moveCenter(area.center());
    move(target.topLeft());
}

std::optional<CatalogueApp> AppPickerDialog::pick(QScreen *screen, const QString &currentEntryPath)
{
    QPointer<AppPickerDialog> dialog = new AppPickerDialog(AppCatalogue::imageApps(), screen, currentEntryPath);
    const int result = dialog->exec();
    std::optional<CatalogueApp> chosen;
    if (dialog && result == QDialog::Accepted)
        chosen = dialog->chosenApp();
    delete dialog;
    return chosen;
}
