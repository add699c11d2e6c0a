#pragma once

#include "generator/outputs.h"
#include "model/class.h"
#include "preview/preview.h"

#include <cstddef>

namespace veldrane {

// The lines that the properties section of the class would have for the property at the 1-based position, those of its
// lookup fields among them. Writing may change the class, as it does when files are written: `owner` is a copy that
// nothing else is done with. Nothing for a position that is not there.
[[nodiscard]] TTCOutputs PropertyPreview(const PreviewSource& source, KZMClass& owner, std::size_t position);

// The position of a property of the class; 0 if it is none of its.
[[nodiscard]] std::size_t PositionOf(const KZMClass& owner, const TTCProperty& property);

} // namespace veldrane
