#include "files/templateScan.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStringList>

namespace newpro {

namespace {

bool isTemplateFile(const QString& name) {
    // The suffix counts in upper case only.
    return name.endsWith(QLatin1String(".MODX"), Qt::CaseSensitive);
}

bool liesIn(const QString& path, const QString& folder) {
    const QString prefix = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    return path == folder || path.startsWith(prefix);
}

class Scan {
  public:
    explicit Scan(const AddTemplateRow& addRow) : addRow(addRow) {}

    /// @param real the folder without links in its path.
    void enter(const QString& folder, const QString& real, QTreeWidgetItem* parent) {
        walked.append(real);
        // One listing gives what two would: files first, each part by name.
        const QFileInfoList entries =
            QDir(folder).entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                                       QDir::Name | QDir::IgnoreCase | QDir::DirsLast);
        for (const QFileInfo& entry : entries) {
            const QString name = entry.fileName();
            const QString path = folder + QLatin1Char('/') + name;
            if (entry.isDir()) {
                // Without a row of its own a folder has no place for what it holds.
                if (QTreeWidgetItem* row = addRow(name, parent, false, QString())) {
                    addFolder(entry, path, row);
                }
            } else if (isTemplateFile(name)) {
                addRow(name, parent, true, path);
            }
        }
        walked.removeLast();
    }

  private:
    void addFolder(const QFileInfo& entry, const QString& path, QTreeWidgetItem* row) {
        // Only a link can leave the path walked so far. Resolving every folder would double the
        // cost of the scan.
        if (!entry.isSymLink() && !entry.isJunction()) {
            enter(path, walked.constLast() + QLatin1Char('/') + entry.fileName(), row);
            return;
        }
        const QString target = entry.canonicalFilePath();
        if (leadsBack(target)) return;
        // Folders that link to one another have far more paths than folders: below a link, each
        // linked folder is entered once a scan.
        if (linksWalked > 0 && enteredBelowLinks.contains(target)) return;
        if (linksWalked > 0) enteredBelowLinks.insert(target);
        ++linksWalked;
        enter(path, target, row);
        --linksWalked;
    }

    bool leadsBack(const QString& target) const {
        for (const QString& folder : walked) {
            if (liesIn(folder, target)) return true;
        }
        return false;
    }

    const AddTemplateRow& addRow;
    QStringList walked;   ///< The folders from the first one down to the current one.
    int linksWalked = 0;  ///< How many of them are links.
    QSet<QString> enteredBelowLinks;
};

}  // namespace

void scanTemplateFolder(const QString& folder, QTreeWidgetItem* parent,
                        const AddTemplateRow& addRow) {
    const QString real = QFileInfo(folder).canonicalFilePath();
    if (!real.isEmpty()) Scan(addRow).enter(folder, real, parent);
}

}  // namespace newpro
