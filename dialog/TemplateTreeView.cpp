#include "dialog/TemplateTreeView.h"

#include <QScrollBar>

#include "dialog/RowFocus.h"

namespace newpro {

TemplateTreeView::TemplateTreeView(QWidget* parent) : QTreeWidget(parent) {
    setObjectName(QStringLiteral("templateTree"));
    setVerticalScrollMode(ScrollPerPixel);
    verticalScrollBar()->setSingleStep(fontMetrics().lineSpacing());
    new RowFocus(this);
}

}  // namespace newpro
