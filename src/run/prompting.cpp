#include "run/prompting.hpp"

#include <iostream>

#include "numerics/format.hpp"
#include "numerics/list_reader.hpp"
#include "run/console.hpp"

namespace vardel {

namespace {

constexpr std::size_t kAnswerLen = 64;

// A piece of the question: left-adjusted and trimmed.
std::string piece(std::string_view text) {
  return std::string(trim(adjustl(text)));
}

// Writes the question. With a bound present the bounds are shown in brackets;
// an absent bound shows as an empty piece.
void ask(std::string_view prompt, const std::string& deflt, const std::optional<std::string>& lo,
         const std::optional<std::string>& hi) {
  if (lo || hi) {
    write_fmt(std::cout, "(2x,a,1x,'([',a,':',a,'],',1x,'<cr>=',a,'):',1x)",
              {piece(prompt), piece(lo.value_or("")), piece(hi.value_or("")), piece(deflt)},
              Advance::no);
  } else {
    write_fmt(std::cout, "(2x,a,1x,'(<cr>=',a,'):',1x)", {piece(prompt), piece(deflt)},
              Advance::no);
  }
  std::cout.flush();
}

// Reads the answer line, cut to 64 characters; empty means "take the default".
std::string answer(std::string_view prompt) {
  std::string line = read_answer_line(prompt);
  if (line.size() > kAnswerLen) line.resize(kAnswerLen);
  return line;
}

// A number written list-directed, as a text without its line end.
template <class T>
std::string list_text(T v) {
  std::string s = list_directed({v});
  if (!s.empty() && s.back() == '\n') s.pop_back();
  return s;
}

bool blank(std::string_view text) {
  return trim(adjustl(text)).empty();
}

void refuse(std::string_view message) {
  write_fmt(std::cout, "(a)", {message});
}

template <class T>
std::optional<std::string> bound_text(std::string_view fmt, const std::optional<T>& bound) {
  if (!bound) return std::nullopt;
  return format(fmt, {*bound}, Advance::no);
}

// The common loop of the three number prompts. `show` turns a number into the
// text of the question; `parse` reads the answer and says whether it could.
template <class T, class Show, class Parse>
void number_prompt(std::string_view prompt, T& var, const std::optional<T>& lower,
                   const std::optional<T>& upper, Show show, std::string_view bound_fmt,
                   Parse parse, std::string_view unreadable) {
  for (;;) {
    ask(prompt, show(var), bound_text(bound_fmt, lower), bound_text(bound_fmt, upper));
    const std::string text = answer(prompt);
    if (blank(text)) return;
    T value = var;
    if (!parse(text, value)) {
      refuse(unreadable);
      continue;
    }
    if ((lower && value < *lower) || (upper && value > *upper)) {
      refuse("Error, value out of range");
      continue;
    }
    var = value;
    return;
  }
}

}  // namespace

void integer_prompt(std::string_view prompt, int& var, std::optional<int> lower,
                    std::optional<int> upper) {
  number_prompt(
      prompt, var, lower, upper, [](int v) { return list_text(v); }, "(g10.0)",
      [](const std::string& text, int& value) {
        return static_cast<bool>(read_int_field(std::string_view(text).substr(0, 10), value));
      },
      "Error, not an integer number");
}

void real_prompt(std::string_view prompt, float& var, std::optional<float> lower,
                 std::optional<float> upper) {
  number_prompt(
      prompt, var, lower, upper, [](float v) { return format("(g13.4)", {v}, Advance::no); },
      "(g13.4)",
      [](const std::string& text, float& value) {
        return static_cast<bool>(read_list(text, {value}));
      },
      "Error, not a real number");
}

void double_prompt(std::string_view prompt, double& var, std::optional<double> lower,
                   std::optional<double> upper) {
  number_prompt(
      prompt, var, lower, upper, [](double v) { return format("(f13.2)", {v}, Advance::no); },
      "(f13.2)",
      [](const std::string& text, double& value) {
        return static_cast<bool>(read_list(text, {value}));
      },
      "Error, not a real number");
}

void logical_prompt(std::string_view prompt, bool& var) {
  for (;;) {
    ask(prompt, var ? "yes" : "no", std::nullopt, std::nullopt);
    std::string text = read_answer_line(prompt);
    if (text.size() > 32) text.resize(32);
    if (blank(text)) return;
    const std::string word(trim(adjustl(text)));
    for (const char* yes : {"y", "yes", "t", "true", "on"}) {
      if (word == yes) {
        var = true;
        return;
      }
    }
    for (const char* no : {"n", "no", "f", "false", "off"}) {
      if (word == no) {
        var = false;
        return;
      }
    }
    refuse("Error, answer y(es)/t(rue)/on or n(o)/f(alse)/off");
  }
}

void string_prompt(std::string_view prompt, std::string& var) {
  ask(prompt, var, std::nullopt, std::nullopt);
  std::string text = read_answer_line(prompt);
  if (text.size() > 128) text.resize(128);
  if (!text.empty()) var = text;
}

}  // namespace vardel
