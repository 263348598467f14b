#include "equity.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

#include "evaluator.h"

namespace make169 {
namespace {

constexpr std::string_view kRankLetters = "23456789TJQKA";
constexpr int kBoardSize = 5;

constexpr std::array<std::array<std::uint8_t, kCardCount>, kCardCount> MakeTypeGrid() {
    std::array<std::array<std::uint8_t, kCardCount>, kCardCount> grid{};
    for (int a = 0; a < kCardCount; ++a) {
        for (int b = 0; b < kCardCount; ++b) {
            const int high = std::max(RankOf(a), RankOf(b));
            const int low = std::min(RankOf(a), RankOf(b));
            const bool suited = SuitOf(a) == SuitOf(b);
            grid[a][b] = static_cast<std::uint8_t>(suited ? high * kRankCount + low
                                                          : low * kRankCount + high);
        }
    }
    return grid;
}
constexpr auto kTypeGrid = MakeTypeGrid();

std::uint64_t SplitMix(std::uint64_t& x) {
    std::uint64_t z = (x += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

constexpr std::uint64_t RotateLeft(std::uint64_t x, int k) {
    return (x << k) | (x >> (64 - k));
}

// The best value among the opponents and how many hold it.
struct Showdown {
    HandValue best = 0;
    std::uint64_t holders = 0;
};

class Trial {
  public:
    Trial(EquityTable& table, int opponents) : table_(table), opponents_(opponents) {
        std::iota(deck_.begin(), deck_.end(), 0);
    }

    void Run(Random& random) {
        const int dealt = kBoardSize + 2 * opponents_;
        for (int i = 0; i < dealt; ++i) {
            const int j =
                i + static_cast<int>(random.Below(static_cast<std::uint32_t>(kCardCount - i)));
            std::swap(deck_[i], deck_[j]);
        }
        CardSet board;
        for (int i = 0; i < kBoardSize; ++i) {
            board.Add(deck_[i]);
        }
        ScoreAllHoldings(board, OpponentsShowdown(board), dealt);
    }

  private:
    Showdown OpponentsShowdown(const CardSet& board) const {
        Showdown showdown;
        for (int o = 0; o < opponents_; ++o) {
            const int first = kBoardSize + 2 * o;
            const HandValue value = Evaluate(board.With(deck_[first]).With(deck_[first + 1]));
            if (value > showdown.best) {
                showdown = {value, 1};
            } else if (value == showdown.best) {
                ++showdown.holders;
            }
        }
        return showdown;
    }

    void ScoreAllHoldings(const CardSet& board, Showdown showdown, int dealt) {
        const std::uint64_t tieShare = EquityTable::kShareUnit / (showdown.holders + 1);
        for (int i = dealt; i < kCardCount; ++i) {
            const CardSet withFirst = board.With(deck_[i]);
            for (int j = i + 1; j < kCardCount; ++j) {
                const HandValue value = Evaluate(withFirst.With(deck_[j]));
                const int type = kTypeGrid[deck_[i]][deck_[j]];
                ++table_.samples[type];
                if (value > showdown.best) {
                    table_.shares[type] += EquityTable::kShareUnit;
                } else if (value == showdown.best) {
                    table_.shares[type] += tieShare;
                }
            }
        }
    }

    EquityTable& table_;
    int opponents_;
    std::array<int, kCardCount> deck_{};
};

}  // namespace

int TypeOfCards(int cardA, int cardB) {
    return kTypeGrid[cardA][cardB];
}

std::string KeyOfType(int type) {
    const int row = type / kRankCount;
    const int column = type % kRankCount;
    std::string key{kRankLetters[std::max(row, column)], kRankLetters[std::min(row, column)]};
    if (row > column) {
        key += 's';
    }
    return key;
}

Random::Random(std::uint64_t seed) {
    for (auto& word : state_) {
        word = SplitMix(seed);
    }
}

std::uint64_t Random::Next() {
    const std::uint64_t result = RotateLeft(state_[1] * 5, 7) * 9;
    const std::uint64_t t = state_[1] << 17;
    state_[2] ^= state_[0];
    state_[3] ^= state_[1];
    state_[1] ^= state_[2];
    state_[0] ^= state_[3];
    state_[2] ^= t;
    state_[3] = RotateLeft(state_[3], 45);
    return result;
}

std::uint32_t Random::Below(std::uint32_t bound) {
    const std::uint32_t threshold = static_cast<std::uint32_t>(-bound) % bound;
    for (;;) {
        const std::uint64_t product = (Next() >> 32) * bound;
        if (static_cast<std::uint32_t>(product) >= threshold) {
            return static_cast<std::uint32_t>(product >> 32);
        }
    }
}

double EquityTable::Equity(int type) const {
    const auto t = static_cast<std::size_t>(type);
    return samples[t] == 0 ? 0.0
                           : static_cast<double>(shares[t]) / (static_cast<double>(kShareUnit) *
                                                               static_cast<double>(samples[t]));
}

std::vector<int> EquityTable::OrderBestFirst() const {
    std::vector<int> order(kTypeCount);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [this](int a, int b) { return Equity(a) > Equity(b); });
    return order;
}

EquityTable Simulate(std::uint64_t trials, std::uint64_t seed, int opponents) {
    if (opponents < 1 || opponents > kMaxOpponents) {
        throw std::invalid_argument("opponents must be 1 to 9");
    }
    EquityTable table;
    Random random(seed);
    Trial trial(table, opponents);
    for (std::uint64_t t = 0; t < trials; ++t) {
        trial.Run(random);
    }
    return table;
}

}  // namespace make169
