/// The program types: which kind of project a file, a plug-in or a request is of.
#pragma once

namespace workbench {

/// The numbers are the host's and cross the boundary as they are. The estimate has two: a project
/// file that is one says `EstimateFile`; its plug-in and its ribbon entry are `EstimateProgram`.
enum ProgramType {
    NoProgram = -1,  ///< Of a file that is no project file.
    EstimateFile = 2,
    BudgetProgram = 4,  ///< The kind that the dialog starts in.
    AuditProgram = 5,   ///< Of any project but a general contract.
    EstimateProgram = 6,
    SettlementProgram = 8,
    ContractingProgram = 16,  ///< General contracting.
    ContractingAudit = 17,
    WholeProcessProgram = 32,  ///< Consulting over the whole process.
};

}  // namespace workbench
