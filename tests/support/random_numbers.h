#pragma once

#include <array>
#include <cstddef>
#include <random>

namespace veldrane::testing {

// Numbers from a seed, the same on every machine: the engine is settled by its standard, the library's distributions
// are not.
class RandomNumbers
{
  public:
    explicit RandomNumbers(unsigned seed) : engine_(seed) {}

    // A number from 0 up to, and without, the limit.
    std::size_t Below(std::size_t limit) { return engine_() % limit; }

    bool Flag() { return Below(2) == 0; }

    // True once in `times` calls, by and large.
    bool OneIn(std::size_t times) { return Below(times) == 0; }

    template <class Item, std::size_t Count>
    const Item& Pick(const std::array<Item, Count>& items)
    {
        return items[Below(Count)];
    }

  private:
    std::mt19937 engine_;
};

} // namespace veldrane::testing
