#include "window/toolkit/drag_source.h"

#include <QDataStream>
#include <QIODevice>
#include <QUrl>

namespace marvolin {

namespace {

constexpr const char* kMimeType = "application/x-marvolin-control";

}  // namespace

std::unique_ptr<QMimeData> ToMimeData(const DragSource& source) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << QByteArray::fromStdString(source.Name) << source.Index << QByteArray::fromStdString(source.Tag);
    auto data = std::make_unique<QMimeData>();
    data->setData(kMimeType, bytes);
    return data;
}

bool IsDragSource(const QMimeData& data) { return data.hasFormat(kMimeType); }

std::optional<DragSource> FromMimeData(const QMimeData& data) {
    if (!IsDragSource(data)) return std::nullopt;
    QDataStream stream(data.data(kMimeType));
    QByteArray name;
    QByteArray tag;
    DragSource source;
    stream >> name >> source.Index >> tag;
    if (stream.status() != QDataStream::Ok) return std::nullopt;
    source.Name = name.toStdString();
    source.Tag = tag.toStdString();
    return source;
}

std::vector<std::string> FilePaths(const QMimeData& data) {
    std::vector<std::string> paths;
    // The toolkit's strings would lose the bytes of a name that is no UTF-8.
    for (const QByteArray& url : data.data("text/uri-list").split('\n')) {
        const QByteArray line = url.trimmed();
        if (line.isEmpty() || line.startsWith('#')) continue;
        // A host may stand between the two slashes and the path.
        const auto path = line.startsWith("file://") ? line.indexOf('/', 7) : line.indexOf('/');
        const bool local = path >= 0 && QUrl::fromEncoded(line).isLocalFile();
        paths.push_back(local ? QByteArray::fromPercentEncoding(line.mid(path)).toStdString() : "");
    }
    return paths;
}

}  // namespace marvolin
