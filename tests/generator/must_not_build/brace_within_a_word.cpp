// ThisLineUsesANameThatItsScopeDoesNotHave
#include "template.h"

void Write(const veldrane::Emitter<veldrane::GreetingScope>& emit)
{
    emit("Dim {Na{me} as String");
}
