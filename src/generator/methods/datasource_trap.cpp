#include "generator/methods/datasource_trap.h"

namespace veldrane {

void WriteDatasourceWarning(const ClassEmitter& emit)
{
    emit.Scope().Asking.Tell(
        "Datasource Error",
        "An error occurred while generating your code. The error is due to a change in the underlying datasource tables. You will need to verify your datasource against this project definition.");
    emit("!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!", LineClass::Alert);
    emit("THERE WAS AN ERROR GENERATING CODE DUE TO A CHANGE IN THE UNDERLYING DATASOURCE TABLES. YOU WILL NEED TO VERIFY YOUR DATASOURCE AGAINST THIS PROJECT DEFINITION.", LineClass::Alert);
}

} // namespace veldrane
