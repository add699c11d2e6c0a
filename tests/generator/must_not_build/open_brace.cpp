// ThisLineHasAnUnpairedBrace
#include "template.h"

void Write(const veldrane::Emitter<veldrane::GreetingScope>& emit)
{
    emit("Dim {Name as String");
}
