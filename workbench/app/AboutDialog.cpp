#include "workbench/app/AboutDialog.h"

#include <unicode/uversion.h>

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSysInfo>

#include "workbench/app/Surface.h"
#include "workbench/hostlibs/SharedInterface/Workbook.h"
#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

QString icuVersion() {
    UVersionInfo numbers;
    char text[U_MAX_VERSION_STRING_LENGTH];
    u_getVersion(numbers);
    u_versionToString(numbers, text);
    return QLatin1String(text);
}

QString versionLines() {
    QStringList lines;
    for (const auto& [name, version] : partVersions())
        lines.append(name + QStringLiteral(": ") + version);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QLabel* selectable(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

QLayout* heading() {
    const QSize size(scaled(48), scaled(48));
    auto* picture = new QLabel;
    picture->setPixmap(pixmapOf(QStringLiteral(":/Image/Workbench/app.svg"), size, 1));
    auto* title = new QLabel(said("新建工程工作台"));
    title->setFont(TBaseTool::GetDefFont(roomFor(16), QFont::Bold));
    auto* row = new QHBoxLayout;
    row->setSpacing(scaled(12));
    row->addWidget(picture);
    row->addWidget(title, 1);
    return row;
}

}  // namespace

QVector<QPair<QString, QString>> partVersions() {
    QVector<QPair<QString, QString>> parts = {
        {said("工作台"), QStringLiteral(WORKBENCH_VERSION)},
        {said("Qt（构建时）"), QStringLiteral(QT_VERSION_STR)},
        {said("Qt（运行时）"), QLatin1String(qVersion())},
        {QStringLiteral("ICU"), icuVersion()}};
    parts += workbookReaderVersions();
    parts.append({said("系统"), QSysInfo::prettyProductName() + QStringLiteral(", ") +
                                    QSysInfo::currentCpuArchitecture()});
    parts.append({said("显示"), QGuiApplication::platformName()});
    return parts;
}

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(said("关于工作台"));
    setObjectName(QStringLiteral("aboutDialog"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(20), scaled(18), scaled(20), scaled(16));
    layout->setSpacing(scaled(14));
    layout->addLayout(heading());
    layout->addWidget(selectable(said("用来运行、查看和测试对话框“新建工程”的小型宿主。")));
    auto* table = new QGridLayout;
    table->setHorizontalSpacing(scaled(24));
    table->setVerticalSpacing(scaled(6));
    for (const auto& [name, version] : partVersions()) {
        const int row = table->rowCount();
        table->addWidget(new QLabel(name), row, 0);
        table->addWidget(selectable(version), row, 1);
    }
    table->setColumnStretch(1, 1);
    layout->addLayout(table);
    auto* buttons = new QDialogButtonBox;
    auto* copy = buttons->addButton(said("复制版本信息"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("copyVersions"));
    auto* close = buttons->addButton(said("关闭"), QDialogButtonBox::AcceptRole);
    close->setObjectName(QStringLiteral("closeAbout"));
    close->setDefault(true);
    close->setFocus();
    connect(copy, &QPushButton::clicked, this,
            [] { QGuiApplication::clipboard()->setText(versionLines()); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace workbench
