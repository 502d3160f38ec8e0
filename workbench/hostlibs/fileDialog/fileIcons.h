/// Pictures of folders and files in a list, drawn at the size needed.
#pragma once

#include <QIcon>

namespace workbench {

/// @param size edge in widget pixels. @param ratio device pixels per widget pixel.
QIcon folderIcon(int size, qreal ratio);
QIcon documentIcon(int size, qreal ratio);

}  // namespace workbench
