// the history is offered
#include <zBaseControl.h>

void zBaseCombox::addItem(const QString& text, const QVariant& data) {
    if (data.isValid()) QComboBox::addItem(text, data);
}
