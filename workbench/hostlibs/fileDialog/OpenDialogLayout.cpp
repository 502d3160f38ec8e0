// How the window is put together; what it does stands in OpenDialog.cpp.
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeView>
#include <QVBoxLayout>

#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/fileDialog/FieldStyle.h"
#include "workbench/hostlibs/fileDialog/FileDialogState.h"
#include "workbench/hostlibs/fileDialog/FileListModel.h"
#include "workbench/hostlibs/fileDialog/OpenDialog.h"
#include "workbench/hostlibs/fileDialog/fileIcons.h"

namespace workbench {

namespace {

struct PlaceButton {
    int place;
    const char* name;
    const char* text;
};

const PlaceButton placeButtons[] = {{ProjectPlace, "place1", "工程文件夹"},
                                    {ComputerPlace, "place2", "本机"},
                                    {PersonalPlace, "place3", "个人云盘"},
                                    {CompanyPlace, "place4", "企业云盘"}};

const int fieldHeight = 28;

template <typename Layout>
Layout* plainLayout(QWidget* widget, int spacing) {
    auto* layout = new Layout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(spacing));
    return layout;
}

QLineEdit* field(const char* name, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setFixedHeight(scaled(fieldHeight));
    return edit;
}

}  // namespace

void OpenDialog::build() {
    const bool named = !request.caption.isEmpty();
    SetCaption(named             ? request.caption
               : foldersWanted() ? QStringLiteral("打开文件夹")
                                 : QStringLiteral("打开文件"));
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(scaled(12), scaled(12), scaled(12), scaled(12));
    columns->setSpacing(scaled(12));
    columns->addWidget(placeColumn());
    auto* right = new QVBoxLayout;
    right->setSpacing(scaled(8));
    columns->addLayout(right, 1);
    right->addWidget(pathRow());
    right->addWidget(fileList(), 1);
    right->addWidget(nameRow());
    right->addWidget(buttonRow());
    nameForReaders();
    applyColours();
    resize(scaled(860), scaled(560));
    setMinimumSize(scaled(620), scaled(380));
}

QWidget* OpenDialog::placeColumn() {
    auto* column = new QWidget(this);
    column->setFixedWidth(scaled(120));
    auto* layout = plainLayout<QVBoxLayout>(column, 4);
    for (const PlaceButton& entry : placeButtons) {
        if (isCloudPlace(entry.place) && request.mode == 0) continue;
        auto* place = new zBaseButton(QString::fromUtf8(entry.text), column);
        place->setObjectName(QLatin1String(entry.name));
        place->setAccessibleName(QStringLiteral("位置：") + QString::fromUtf8(entry.text));
        place->setProperty("place", entry.place);
        place->setCheckable(true);
        place->setCheckedBackColorEnabled(true);
        place->setFixedHeight(scaled(34));
        layout->addWidget(place);
        places.append(place);
    }
    layout->addStretch(1);
    return column;
}

QWidget* OpenDialog::pathRow() {
    auto* row = new QWidget(this);
    auto* layout = plainLayout<QHBoxLayout>(row, 8);
    upButton = windowButton("upButton", QStringLiteral("上一级"), row);
    upButton->setFixedSize(scaled(72), scaled(fieldHeight));
    pathField = field("pathField", row);
    layout->addWidget(upButton);
    layout->addWidget(pathField, 1);
    return row;
}

QWidget* OpenDialog::fileList() {
    model = new FileListModel(this);
    list = new QTreeView(this);
    list->setObjectName(QStringLiteral("fileList"));
    list->setModel(model);
    list->setRootIsDecorated(false);
    list->setItemsExpandable(false);
    list->setUniformRowHeights(true);  // thousands of rows stay quick
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setTextElideMode(Qt::ElideMiddle);
    list->setIconSize(QSize(scaled(18), scaled(18)));
    QHeaderView* header = list->header();
    header->setStretchLastSection(false);
    header->setSectionsMovable(false);
    header->setMinimumSectionSize(scaled(60));
    header->setSectionResizeMode(FileListModel::NameColumn, QHeaderView::Stretch);
    header->resizeSection(FileListModel::TypeColumn, scaled(104));
    header->resizeSection(FileListModel::SizeColumn, scaled(92));
    header->resizeSection(FileListModel::TimeColumn, scaled(142));
    list->sortByColumn(FileListModel::NameColumn, Qt::AscendingOrder);
    list->setSortingEnabled(true);
    return list;
}

QWidget* OpenDialog::nameRow() {
    auto* row = new QWidget(this);
    auto* layout = plainLayout<QHBoxLayout>(row, 8);
    nameLabel = new zBaseLabel(
        foldersWanted() ? QStringLiteral("文件夹：") : QStringLiteral("文件名："), row);
    nameField = field("nameField", row);
    if (foldersWanted()) nameField->setPlaceholderText(QStringLiteral("当前文件夹"));
    filterBox = new zBaseCombox(row);
    filterBox->setObjectName(QStringLiteral("filterBox"));
    filterBox->setFixedSize(scaled(240), scaled(fieldHeight));
    filterBox->setVisible(!foldersWanted());
    layout->addWidget(nameLabel);
    layout->addWidget(nameField, 1);
    layout->addWidget(filterBox);
    return row;
}

QWidget* OpenDialog::buttonRow() {
    auto* row = new QWidget(this);
    auto* layout = plainLayout<QHBoxLayout>(row, 8);
    messageLabel = new zBaseLabel(row);
    messageLabel->setObjectName(QStringLiteral("messageLabel"));
    messageLabel->setTextFormat(Qt::PlainText);  // names of files may look like markup
    messageLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    openButton = windowButton("openButton", QStringLiteral("打开"), row);
    openButton->setControlType(88);
    openButton->setDefault(true);
    cancelButton = windowButton("cancelButton", QStringLiteral("取消"), row);
    layout->addWidget(messageLabel, 1);
    layout->addWidget(openButton);
    layout->addWidget(cancelButton);
    return row;
}

void OpenDialog::nameForReaders() {
    pathField->setAccessibleName(QStringLiteral("路径"));
    list->setAccessibleName(QStringLiteral("文件列表"));
    nameField->setAccessibleName(foldersWanted() ? QStringLiteral("文件夹名")
                                                 : QStringLiteral("文件名"));
    filterBox->setAccessibleName(QStringLiteral("文件类型"));
    messageLabel->setAccessibleName(QStringLiteral("提示"));
    nameLabel->setBuddy(nameField);
}

void OpenDialog::applyColours() {
    const QString listSheet =
        QStringLiteral(
            "QTreeView{background:%1;border:1px solid %2;outline:0;"
            "show-decoration-selected:0}"
            "QTreeView::item{height:%3px;padding:0 %4px;border:none}"
            "QTreeView::item:hover{background:%5}"
            "QTreeView::item:selected{background:%6;color:%7}"
            "QHeaderView::section{background:%5;color:%8;border:none;"
            "border-right:1px solid %2;border-bottom:1px solid %2;padding:%9px %4px}")
            .arg(colour(Tint::Field).name(), colour(Tint::Border).name())
            .arg(scaled(27))
            .arg(scaled(6))
            .arg(colour(Tint::Hover).name(), colour(Tint::Selected).name(),
                 colour(Tint::Text).name(), colour(Tint::Muted).name())
            .arg(scaled(4));
    setStyleSheet(fieldSheet() + listSheet);
    const int size = list->iconSize().width();
    model->setIcons(folderIcon(size, devicePixelRatioF()), documentIcon(size, devicePixelRatioF()));
}

}  // namespace workbench
