#pragma once

#include "ports/reading_watch.h"

#include <cstddef>
#include <vector>

namespace veldrane::testing {

// Keeps what it is told, and cancels at so many rows.
class RecordedWatch : public ReadingWatch
{
  public:
    void Read(std::size_t rows) override
    {
        Told.push_back(rows);
        if (CancelAt != 0 && rows >= CancelAt)
            throw ReadingCancelled();
    }

    std::size_t CancelAt = 0; // 0 for never
    std::vector<std::size_t> Told;
};

} // namespace veldrane::testing
