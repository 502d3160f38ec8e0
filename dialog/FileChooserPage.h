/// A page that starts from an existing project file.
#pragma once

#include "core/part.h"
#include "zBaseControl.h"

namespace newpro {

/// What differs between the pages.
struct FileChooserConfig {
    const char* objectName;
    QString caption;
    QString createText;  ///< Text of the "new" button.
    bool grid;           ///< Laid out on a grid; otherwise as a column.
    double sideMargin;   ///< Left and right, design pixels; none inside a page that has its own.
};

extern const FileChooserConfig auditPageConfig;
extern const FileChooserConfig contractingPageConfig;

/// Caption, history combo box, browse button and "new" button.
class FileChooserPage : public zBaseWidget {
    Q_OBJECT
  public:
    FileChooserPage(const FileChooserConfig& config, QWidget* parent);

    // Each null where the host has deleted it.
    zBaseWidget* pathPanel() const { return panel; }
    zBaseCombox* fileCombo() const { return combo; }
    zBaseButton* browseButton() const { return browse; }
    zBaseButton* newButton() const { return create; }

  protected:
    /// Return in the empty field presses the "new" button, which says what is missing. A text it
    /// only takes over, as in any field with a list.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void buildPathPanel();
    /// @param gap pixels between the path panel and the button.
    void placeInColumn(QLayout* captionRow, QLayout* buttonRow, int gap);
    void placeInGrid(QLayout* captionRow, QLayout* buttonRow, int gap);

    const Part<zBaseWidget> panel;
    const Part<zBaseCombox> combo;
    const Part<zBaseButton> browse;
    const Part<zBaseButton> create;
};

}  // namespace newpro
