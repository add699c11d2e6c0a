// ThisLineHasTooManyPieces
#include "template.h"

void Write(const veldrane::Emitter<veldrane::GreetingScope>& emit)
{
    emit("{Name},{Name},{Name},{Name},{Name},{Name},{Name},{Name},{Name},{Name},{Name},{Name}");
}
