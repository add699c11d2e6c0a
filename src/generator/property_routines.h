#pragma once

#include "generator/scopes.h"

// The routines of a single property, for the properties section of a class module.
namespace veldrane {

// Visual Basic knows one default member in a class: the first routine written of the first default property carries
// the mark, and no other does. One object serves one class.
class DefaultMark
{
  public:
    void Write(const PropertyEmitter& emit);

  private:
    bool written_ = false;
};

// The routines of a built-in property, chosen by its name; nothing for a name that is not known.
void WriteBuiltInProperty(const PropertyEmitter& emit);

// The Get and the Let or Set of any other property, as far as it has them.
void WritePropertyRoutines(const PropertyEmitter& emit, DefaultMark& mark);

// All that the section has for a property of either kind: its routines, and those of its lookup fields.
void WriteProperty(const PropertyEmitter& emit, DefaultMark& mark);

} // namespace veldrane
