#include "FileLabel.h"

#include <QDebug>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <sys/xattr.h>

namespace {
constexpr char TagsAttribute[] = "user.xdg.tags";
constexpr ssize_t MaxTagsSize = 64 * 1024;

bool readTags(const QByteArray &path, QStringList *out, int *error)
{
    out->clear();
    const ssize_t size = getxattr(path.constData(), TagsAttribute, nullptr, 0);
    if (size < 0) {
        *error = errno;
        return errno == ENODATA;  // no tags yet is fine
    }
    if (size > MaxTagsSize) {
        *error = E2BIG;
        return false;
    }
    QByteArray value(size, '\0');
    const ssize_t got = getxattr(path.constData(), TagsAttribute, value.data(), value.size());
    if (got < 0) {
        *error = errno;
        return false;
    }
    value.truncate(got);
    for (const QString &tag : QString::fromUtf8(value).split(u','))
        if (!tag.trimmed().isEmpty())
            out->append(tag.trimmed());
    return true;
}
}  // namespace

namespace FileLabel {

QString colourName(int labelIndex)
{
    static const char *const names[] = {"Orange", "Red", "Yellow", "Blue", "Purple", "Green", "Gray"};
    if (labelIndex < 1 || labelIndex > 7)
        return QString();
    return QString::fromLatin1(names[labelIndex - 1]);
}

QStringList tags(const QString &filePath)
{
    QStringList result;
    int error = 0;
    readTags(QFile::encodeName(filePath), &result, &error);
    return result;
}

bool apply(const QString &filePath, int labelIndex)
{
    const QString colour = colourName(labelIndex);
    if (colour.isEmpty())
        return false;
    const QByteArray path = QFile::encodeName(filePath);
    QStringList current;
    int error = 0;
    if (!readTags(path, &current, &error)) {
        qInfo("File label not set on %s: %s", path.constData(), std::strerror(error));
        return false;
    }
    if (current.contains(colour, Qt::CaseInsensitive))
        return true;
    current << colour;
    const QByteArray value = current.join(u',').toUtf8();
    if (setxattr(path.constData(), TagsAttribute, value.constData(), value.size(), 0) != 0) {
        qInfo("File label not set on %s: %s", path.constData(), std::strerror(errno));
        return false;
    }
    return true;
}

}  // namespace FileLabel
