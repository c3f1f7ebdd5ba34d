#include "LinkListModel.h"

#include "Texts.h"

#include <QColor>
#include <QFontDatabase>

namespace {
const QColor kDarkText = QColor::fromRgbF(0.21f, 0.19f, 0.19f, 1.0f);
const QColor kLightGrey = QColor::fromRgbF(0.6f, 0.6f, 0.6f, 1.0f);
}  // namespace

LinkListModel::LinkListModel(QObject *parent) : QAbstractListModel(parent)
{
    m_font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    m_font.setPointSizeF(11.0);
}

void LinkListModel::setLinks(const QStringList &links)
{
    beginResetModel();
    m_links = links;
    endResetModel();
}

QString LinkListModel::linkAt(int row) const
{
    const int i = row - FirstLinkRow;
    return i >= 0 && i < m_links.size() ? m_links.at(i) : QString();
}

void LinkListModel::setColourised(bool colourised)
{
    if (m_colourised == colourised)
        return;
    m_colourised = colourised;
    if (rowCount() > 1)
        emit dataChanged(index(1), index(rowCount() - 1), {Qt::ForegroundRole, Qt::FontRole});
}

int LinkListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : FirstLinkRow + int(m_links.size());
}

QVariant LinkListModel::data(const QModelIndex &index, int role) const
{
    const int row = index.row();
    if (!index.isValid() || row < 0 || row >= rowCount())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        if (row == CopyAllRow)
            return Texts::CopyAllURLs;
        if (row == ClearRow)
            return Texts::ClearList;
        return row == 0 ? QString() : m_links.at(row - FirstLinkRow);
    case Qt::ForegroundRole:
        if (!m_colourised || row == 0)
            return {};
        return row < FirstLinkRow ? kDarkText : kLightGrey;
    case Qt::FontRole:
        return m_colourised && row > 0 ? QVariant(m_font) : QVariant();
    default:
        return {};
    }
}
