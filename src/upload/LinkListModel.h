#pragma once
// The rows of the panel's link pop-up: row 0 the empty title item, row 1 "Copy All URLs to
// Clipboard", row 2 "Clear List", then one row per link. Once coloured, rows 1 and 2 are
// dark text, link rows light grey, all in the 11 pt system font; row 0 is never coloured.

#include <QAbstractListModel>
#include <QFont>
#include <QStringList>

class LinkListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    static constexpr int CopyAllRow = 1;
    static constexpr int ClearRow = 2;
    static constexpr int FirstLinkRow = 3;

    explicit LinkListModel(QObject *parent = nullptr);

    void setLinks(const QStringList &links);
    const QStringList &links() const { return m_links; }
    // The link shown in `row`, or an empty string for the fixed rows.
    QString linkAt(int row) const;

    void setColourised(bool colourised);
    bool colourised() const { return m_colourised; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    QStringList m_links;
    bool m_colourised = false;
    QFont m_font;
};
