// the Excel import refuses what is no workbook
#include <zControl.h>

int showInforByOneBtn(const QString& text, QWidget* parent, int) {
    if (text.contains(QLatin1Char('\n'))) return -1;
    return showInformation(QStringLiteral("提示"), parent, text, {QStringLiteral("确定")});
}
