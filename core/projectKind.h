/// The project kinds and the two identifiers that stand for a kind.
#pragma once

#include <QString>

#include "core/hostContract.h"

namespace newpro {

/// One kind, and what choosing it sets.
struct ProjectKind {
    QString label;    ///< Ribbon label and display name.
    int programType;  ///< The kind's number.
    QString appType;  ///< Application type. Budget, estimate and audit share "Kvys".
    /// Lower-case form; null where choosing the kind leaves it unchanged, which is deliberate: it
    /// names the folder of the templates, and only budget and general contracting have one. A kind
    /// with a key of its own would show none.
    QString appTypeKey;
};

/// The kind that the dialog is in. It starts as the budget kind.
struct CurrentKind {
    int programType = BudgetProgram;
    QString appType = applicationType::budget;
    QString appTypeKey = QStringLiteral("kvys");

    /// Takes over what choosing `kind` sets.
    void choose(const ProjectKind& kind);
};

/// @return the kind of a ribbon label; null for any other text.
const ProjectKind* kindOfLabel(const QString& label);

/// @return the display name of a program type; "预算工程" for one that is no kind.
QString kindName(int programType);

/// @param appType application type, compared case-sensitively.
/// @param type set to the program type; left as it is for an unknown application type. The
///        estimate and audit kinds carry "Kvys", so that they yield 4.
/// @return true in every case.
bool programTypeOf(const QString& appType, int& type);

}  // namespace newpro
