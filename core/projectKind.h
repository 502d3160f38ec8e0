/// The project kinds and the two identifiers that stand for a kind.
#pragma once

#include <QString>

namespace newpro {

/// Program types. 4, 8, 16 and 32 are single bits; 5 and 6 are not.
enum ProgramType {
    BudgetProgram = 4,
    AuditProgram = 5,
    EstimateProgram = 6,
    SettlementProgram = 8,
    ContractingProgram = 16,
    WholeProcessProgram = 32,
    UnknownProgram = -1,
};

/// One kind, and what choosing it sets.
struct ProjectKind {
    QString label;       ///< Ribbon label and display name.
    int programType;     ///< The kind's number.
    QString appType;     ///< Application type. Budget, estimate and audit share "Kvys".
    QString appTypeKey;  ///< Lower-case form; null where choosing the kind leaves it unchanged,
                         ///< which is deliberate: only budget and general contracting rewrite it.
};

/// The kind that the dialog is in. It starts as the budget kind.
struct CurrentKind {
    int programType = BudgetProgram;
    QString appType = QStringLiteral("Kvys");
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
