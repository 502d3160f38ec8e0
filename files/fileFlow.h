/// What sets the flows that start from an existing project file apart.
#pragma once

#include <QStringList>
#include <QVector>

#include "files/filePages.h"

namespace newpro {

/// A text of the page that goes out with the creation.
struct PageText {
    QString key;
    QPointer<zBaseCombox> FilePage::*combo;
    bool fromTemplateOnly;
};

/// One flow.
struct FlowTraits {
    FilePage FilePages::*page;
    // New from file
    bool optional;        ///< The file counts only while the page's option is checked.
    bool hostMustKnow;    ///< The host must take the file for a budget project.
    int flowUsage;        ///< Usage function of the whole flow, refusals included; 0: none.
    int creationUsage;    ///< Usage function of the creation alone; 0: none.
    int mode;             ///< Flags of the kind for createFromPage; 0: a message to the plug-in.
    bool remembersModel;  ///< A start from the template keeps the model, to propose it next time.
    QVector<PageText> texts;
    bool (*takesSuffix)(const QString& suffix);  ///< In upper case.
    QString noFile;                              ///< Refuses what is no file.
    QString wrongSuffix;                         ///< Refuses a file of another kind.
    // Browsing
    int suffixKind;          ///< Kind of project file whose suffixes the host is asked for.
    int browseMode;          ///< Mode of the file dialog.
    QStringList notBrowsed;  ///< Suffixes that are refused already there.
};

/// @return the traits of a flow.
const FlowTraits& traitsOf(FileFlow flow);

}  // namespace newpro
