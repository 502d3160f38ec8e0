/// Chance that is the same everywhere: the same seed throws the same dice on every platform.
#pragma once

#include <QStringList>
#include <random>

namespace monkey {

class Dice {
  public:
    explicit Dice(quint32 seed) : engine(seed) {}

    /// @return from 0 to `count` - 1. The standard's distributions differ between libraries.
    int below(int count) { return int(engine() % quint32(count)); }
    /// @return from `least` to `most`.
    int from(int least, int most) { return least + below(most - least + 1); }
    /// @return true once in `times`, on average.
    bool onceIn(int times) { return below(times) == 0; }

    template <typename List>
    auto among(const List& list) -> typename List::value_type {
        return list.at(below(int(list.size())));
    }

  private:
    std::mt19937 engine;
};

}  // namespace monkey
