// not a constant expression
#include "template.h"

void Write(const veldrane::Emitter<veldrane::GreetingScope>& emit, const char* line)
{
    emit(line);
}
