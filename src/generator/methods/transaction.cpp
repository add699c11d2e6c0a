#include "generator/methods/transaction.h"

namespace veldrane {

bool RunsTransaction(const ClassScope& scope)
{
    return IsTopLevel(scope.Class) && scope.Project.UseTransactions;
}

void WriteFailure(const ClassEmitter& emit, const FailureLines& lines)
{
    const bool runsTransaction = RunsTransaction(emit.Scope());
    emit(lines.Label);
    emit("    Screen.MousePointer = vbDefault");
    if (runsTransaction)
        emit(lines.Rollback);
    WriteErrorReport(emit, lines.Message);
    if (!runsTransaction)
        return;
    emit("    Exit Function");
    emit(lines.RollbackLabel);
    emit("    adoCon.RollbackTrans");
    emit("    Return");
}

} // namespace veldrane
