/// The host's file dialog in the hand of a person.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include "fileDialog.h"
#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/fileDialog/FileListModel.h"
#include "workbench/hostlibs/fileDialog/OpenDialog.h"

namespace testing_support {

inline QString open(const QString& folder, int mode = 2, OpenFileType type = OpenFile,
                    QStringList filter = {}) {
    return zFileDialog::getOpenFileName(nullptr, folder, &filter, mode, QString(), true, QString(),
                                        true, type);
}

/// What a person does with the window.
class Hand {
  public:
    explicit Hand(workbench::OpenDialog* dialog) : dialog(dialog) {}

    QTreeView* list() const { return child<QTreeView>(dialog, "fileList"); }
    void press(const char* name) { click(child<QPushButton>(dialog, name)); }
    void write(const char* field, const QString& text) {
        auto* edit = child<QLineEdit>(dialog, field);
        edit->setFocus();
        edit->selectAll();
        edit->insert(text);  // as an input method does: keys have no Chinese
    }
    QString read(const char* field) const { return child<QLineEdit>(dialog, field)->text(); }
    void key(const char* widget, Qt::Key key) {
        QTest::keyClick(child<QWidget>(dialog, widget), key);
    }
    QString message() const { return child<QLabel>(dialog, "messageLabel")->text(); }
    QString place() const {
        for (QPushButton* button : dialog->findChildren<QPushButton*>())
            if (button->isCheckable() && button->isChecked()) return button->objectName();
        return {};
    }

    Lines names() const {
        Lines lines;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            lines.push_back(list()->model()->index(row, 0).data().toString().toStdString());
        return lines;
    }
    QPoint at(const QString& name) const {
        const auto* model = static_cast<workbench::FileListModel*>(list()->model());
        const int row = model->rowOf(name);
        EXPECT_GE(row, 0) << "not shown: " << name.toStdString();
        const QModelIndex index = model->index(row, 0);
        list()->scrollTo(index);
        return list()->visualRect(index).center();
    }
    void clickRow(const char* name) {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, at(utf(name)));
    }
    void doubleClickRow(const char* name) {
        const QPoint where = at(utf(name));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, where);
        testing_support::doubleClick(list()->viewport(), where);
    }

    workbench::OpenDialog* dialog;
};

/// Lets a hand use the window that comes up in this scope.
[[nodiscard]] inline ModalDriver whenOpen(std::function<void(Hand&)> use) {
    return whenModal<workbench::OpenDialog>([use](workbench::OpenDialog* dialog) {
        Hand hand(dialog);
        use(hand);
    });
}

class FileDialog : public testing::Test {
  protected:
    FileDialog() {
        host.write(QStringLiteral("ProjectFiles/b楼.gcfx"));
        host.write(QStringLiteral("ProjectFiles/A桥.GCFG"));
        host.write(QStringLiteral("ProjectFiles/notes.txt"));
        host.write(QStringLiteral("ProjectFiles/旧/深/c.GCFX"));
        projects = host.path(QStringLiteral("ProjectFiles"));
        host.values().basicSettings.projectFolder = projects;
    }
    QString inProjects(const char* name) { return projects + QLatin1Char('/') + utf(name); }

    TemporaryInstallation host;
    QString projects;
};

}  // namespace testing_support
