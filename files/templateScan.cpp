#include "files/templateScan.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStringList>

namespace newpro {

namespace {

constexpr int mostRepeats = 1000;

bool isTemplateFile(const QString& name) {
    // The suffix deliberately counts in upper case only: the tree shows what the host itself wrote.
    // The cards take any case.
    return name.endsWith(QLatin1String(".MODX"), Qt::CaseSensitive);
}

bool liesIn(const QString& path, const QString& folder) {
    const QString prefix = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    return path == folder || path.startsWith(prefix);
}

class Scan {
  public:
    explicit Scan(const AddTemplateRow& add) : addRow(add) {}

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
        if (leadsBack(target) || !mayFollow(target)) return;
        ++linksWalked;
        enter(path, target, row);
        --linksWalked;
    }

    /// @return whether a link to the folder would go round; then notes what lies on that way.
    bool leadsBack(const QString& target) {
        for (int i = 0; i < walked.size(); ++i) {
            if (!liesIn(walked.at(i), target)) continue;
            for (const QString& folder : walked.mid(i)) onLoops.insert(folder);
            return true;
        }
        return false;
    }

    /// Folders that link to one another have far more paths than folders: what was entered below a
    /// link is not entered there again where it is on a loop, and else only so often in all.
    bool mayFollow(const QString& target) {
        if (linksWalked == 0) return true;
        if (!enteredBelowLinks.contains(target)) {
            enteredBelowLinks.insert(target);
            return true;
        }
        return !onLoops.contains(target) && ++repeats <= mostRepeats;
    }

    const AddTemplateRow& addRow;
    QStringList walked;   ///< The folders from the first one down to the current one.
    int linksWalked = 0;  ///< How many of them are links.
    int repeats = 0;      ///< Folders entered again below links, in the whole scan.
    QSet<QString> enteredBelowLinks;
    QSet<QString> onLoops;  ///< Folders from which a way leads back to themselves.
};

}  // namespace

void scanTemplateFolder(const QString& folder, QTreeWidgetItem* parent,
                        const AddTemplateRow& addRow) {
    const QString real = QFileInfo(folder).canonicalFilePath();
    if (!real.isEmpty()) Scan(addRow).enter(folder, real, parent);
}

}  // namespace newpro
