// The failure handler of EvaluatePokerHand, apart so that its message can be checked.
#pragma once

#include <cstdint>
#include <string>

namespace cards::detail {

// Shows "Error  in  EvaluatePokerHand (  <description>  )" and gives the failed result, 0.
std::int16_t ReportEvaluateFailure(const std::string& description);

}  // namespace cards::detail
