// combo boxes keep text and data
#include <zBaseControl.h>

void zBaseCombox::addItem(const QString& text, const QVariant&) {
    QComboBox::addItem(text);
}
