/// The pages that start from an existing project file, as values.
#pragma once

#include <QAbstractButton>
#include <QPointer>

#include "zBaseControl.h"

namespace newpro {

/// The flows that start from an existing project file, one per page.
enum class FileFlow { Estimate, Settlement, Audit, Contracting };

/// The widgets of one page, each null where the page has none. A missing option counts as not
/// checked, a missing combo box as an empty text.
struct FilePage {
    QPointer<QAbstractButton> fromFile;   ///< Option "from an existing project file".
    QPointer<zBaseCombox> fileCombo;      ///< History list; the path is its current text.
    QPointer<zBaseCombox> templateCombo;  ///< Goes out as "TemplateName" (estimate) or "JsMb".
    QPointer<zBaseCombox> modelCombo;     ///< Estimate templates; goes out as "GsMb".

    /// @return the current text of the file combo box; empty without one.
    QString path() const { return fileCombo ? fileCombo->currentText() : QString(); }
    /// Makes the first item of the file combo box whose text is exactly `path` current.
    /// @return whether there is such an item; without one nothing changes.
    bool select(const QString& path) const;
};

/// All four pages. The dialog builds the audit and the general-contracting page only.
struct FilePages {
    FilePage audit;
    FilePage contracting;
    FilePage settlement;
    FilePage estimate;

    /// @return the page of a flow.
    const FilePage& of(FileFlow flow) const;
};

}  // namespace newpro
