#ifndef LUMARO_BENCH_TOOLS_RANDOM_H_
#define LUMARO_BENCH_TOOLS_RANDOM_H_

// The benchmark data's pseudo-random numbers: SplitMix64, so that one seed
// gives the same data on every machine and compiler (no <random>
// distribution, whose results the standard leaves to the library).

#include <cstdint>
#include <string_view>
#include <vector>

namespace bench {

class Random {
 public:
  explicit Random(uint64_t seed) : state_(seed) {}

  uint64_t Next() {
    uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
  }

  // A number from `low` to `high`, both included.
  int64_t Between(int64_t low, int64_t high) {
    return low + static_cast<int64_t>(Next() % static_cast<uint64_t>(high - low + 1));
  }

  template <typename T>
  const T& Pick(const std::vector<T>& choices) {
    return choices[Next() % choices.size()];
  }

 private:
  uint64_t state_;
};

}  // namespace bench

#endif  // LUMARO_BENCH_TOOLS_RANDOM_H_
