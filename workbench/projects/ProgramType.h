/// The program types: which kind of project a file, a plug-in or a request is of.
#pragma once

#include "core/hostContract.h"

namespace workbench {

using newpro::AuditProgram;  ///< Of any project but a general contract.
using newpro::BudgetProgram;
using newpro::ContractingProgram;
using newpro::EstimateProgram;
using newpro::SettlementProgram;
using newpro::WholeProcessProgram;

/// What project files say besides. The estimate has two numbers: a file that is one says
/// `EstimateFile`; its plug-in and its ribbon entry are `EstimateProgram`.
enum FileProgramType {
    NoProgram = newpro::UnknownProgram,  ///< Of a file that is no project file.
    EstimateFile = newpro::estimateBit,
    ContractingAudit = ContractingProgram | newpro::fromFileBit,
};

}  // namespace workbench
