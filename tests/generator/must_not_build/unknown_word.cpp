// ThisLineUsesANameThatItsScopeDoesNotHave
#include "template.h"

void Write(const veldrane::Emitter<veldrane::GreetingScope>& emit)
{
    emit("Dim {Nmae} as String");
}
