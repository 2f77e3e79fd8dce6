#pragma once
/// \file
/// `DragSource` as the mime data of a drag.

#include <QMimeData>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/drag_source.h"

namespace marvolin {

std::unique_ptr<QMimeData> ToMimeData(const DragSource& source);
bool IsDragSource(const QMimeData& data);
/// The source in `data`; none when it carries no control.
std::optional<DragSource> FromMimeData(const QMimeData& data);
/// The local paths of the files in `data`, in order; "" for one that is not local.
std::vector<std::string> FilePaths(const QMimeData& data);

}  // namespace marvolin
