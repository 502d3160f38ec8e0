/// The walk over a folder of template projects.
#pragma once

#include <QString>
#include <functional>

class QTreeWidgetItem;

namespace newpro {

/// Makes one row of the template tree.
/// @param parent the row's parent; null for a top-level row. @param isFile file or folder row.
/// @param data full path of a file; empty for a folder. @return the new row.
using AddTemplateRow = std::function<QTreeWidgetItem*(const QString& text, QTreeWidgetItem* parent,
                                                      bool isFile, const QString& data)>;

/// Makes a row for every template file and every folder below `folder`, depth first; within a
/// folder the files come before the folders, each by name without regard to case. Hidden entries
/// are left out. A link to a folder that it lies in gets its row and is not entered; nor is any
/// link below another one, after a thousand of them: links that fork have more ways than anybody
/// has time. A folder that does not exist or cannot be read makes no rows.
void scanTemplateFolder(const QString& folder, QTreeWidgetItem* parent,
                        const AddTemplateRow& addRow);

}  // namespace newpro
