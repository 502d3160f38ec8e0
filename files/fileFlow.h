/// What sets the flows that start from an existing project file apart.
#pragma once

#include <QStringList>
#include <QVector>
#include <optional>

#include "files/filePages.h"

namespace newpro {

/// Kinds of project files, as the host tells their suffixes. Not program types.
enum SuffixKind {
    AuditSuffixes = 1,
    EstimateSuffixes = 2,
    SettlementSuffixes = 8,
    ContractingSuffixes = 16,
};

/// What choosing a file needs: browsing for it, and judging it.
struct ChoiceTraits {
    int suffixKind = 0;      ///< A SuffixKind: what the host is asked for.
    int browseMode = 0;      ///< A BrowseMode.
    QStringList notBrowsed;  ///< Suffixes that are refused while browsing.
    bool (*takesSuffix)(const QString& suffix) = nullptr;  ///< In upper case.
    bool hostMustKnow = false;  ///< The host must take the file for a budget project.
    QString noFile;             ///< Refuses what is no file.
    QString wrongSuffix;        ///< Refuses a file of another kind.
};

/// A text of the page that goes out with the creation.
struct PageText {
    QString key;
    QPointer<zBaseCombox> FilePage::*combo;
    bool fromTemplateOnly;
};

/// What creating a project needs.
struct CreationTraits {
    bool fileIsOptional = false;       ///< It counts only while the page's option is checked.
    std::optional<int> flowUsage;      ///< Usage function of the whole flow, refusals included.
    std::optional<int> creationUsage;  ///< Usage function of the creation alone.
    std::optional<int> kind;  ///< For createFromPage. None: a message to the plug-in instead.
    bool remembersModel =
        false;  ///< A start from the template keeps the model, to propose it next.
    QVector<PageText> texts;
};

const ChoiceTraits& choiceOf(FileFlow flow);
const CreationTraits& creationOf(FileFlow flow);

}  // namespace newpro
