// Prompt readers: one question on the screen, one line of standard input.
//
// Each shows the question with its default (and bounds, if any), reads one
// line, and returns the default on an empty or blank line. An unreadable or
// out-of-range answer is refused with a message and the question is asked
// again with the same default; there is no limit on repeats.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vardel {

void integer_prompt(std::string_view prompt, int& var, std::optional<int> lower = std::nullopt,
                    std::optional<int> upper = std::nullopt);
void real_prompt(std::string_view prompt, float& var, std::optional<float> lower = std::nullopt,
                 std::optional<float> upper = std::nullopt);
void double_prompt(std::string_view prompt, double& var, std::optional<double> lower = std::nullopt,
                   std::optional<double> upper = std::nullopt);
void logical_prompt(std::string_view prompt, bool& var);
void string_prompt(std::string_view prompt, std::string& var);

}  // namespace vardel
