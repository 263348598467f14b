// The 169 starting types and their all-in equity against random opponent hands.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace make169 {

inline constexpr int kTypeCount = 169;

// Type index of two distinct cards: 13 pairs, 78 suited, 78 offsuit types, each a cell of
// the 13 x 13 grid (suited above the diagonal, offsuit below).
int TypeOfCards(int cardA, int cardB);
// "AA", "AKs", "AK": the higher value letter first, "T" for the ten.
std::string KeyOfType(int type);

// Deterministic across platforms and standard libraries (xoshiro256**, seeded by
// splitmix64; bounded draws by multiply-and-reject).
class Random {
  public:
    explicit Random(std::uint64_t seed);
    std::uint64_t Next();
    std::uint32_t Below(std::uint32_t bound);

  private:
    std::array<std::uint64_t, 4> state_{};
};

struct EquityTable {
    // Shares in units of 1/kShareUnit of a pot, so that sums stay exact: a tie among k
    // hands is kShareUnit / k for any k up to ten.
    static constexpr std::uint64_t kShareUnit = 2520;
    std::array<std::uint64_t, kTypeCount> shares{};
    std::array<std::uint64_t, kTypeCount> samples{};

    double Equity(int type) const;
    // Type indices, best equity first; ties keep the lower index first.
    std::vector<int> OrderBestFirst() const;
};

inline constexpr int kMaxOpponents = 9;

// Each trial deals the opponents and the board from a full deck, then scores every
// holding of the 39 cards left, so all 169 types see the same deals.
EquityTable Simulate(std::uint64_t trials, std::uint64_t seed, int opponents);

}  // namespace make169
