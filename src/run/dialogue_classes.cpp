// The prior and cost questions of the advanced dialogue: sets priortype,
// meansstype, prob, costtype and cost. Per-class questions come in report
// order (classes ranked by the first letter of their labels).
#include <iostream>
#include <string>

#include "numerics/format.hpp"
#include "report/class_order.hpp"
#include "run/dialogue_steps.hpp"
#include "run/init.hpp"

namespace vardel {

namespace {

// The question text, built in an 80-character text as the prompt reader gets it.
std::string question_text(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (std::string_view p : pieces) text += p;
  return fixed_text(text, kFileNameLen);
}

}  // namespace

void ask_priors(AnswerLog& log) {
  Init& in = init();
  choice_lines({"  Choose 1 for equal priors", "         2 for estimated priors",
                "         3 for your choice of priors"});
  in.priortype = ask_choice(2, 1, 3);
  log.choice(in.priortype);
  in.meansstype = 1;

  const int k = in.nclass;
  if (in.priortype == 1) {
    for (int c = 1; c <= k; ++c) in.prob(c) = 1.0 / static_cast<double>(k);
  } else if (in.priortype == 2) {
    for (int c = 1; c <= k; ++c)
      in.prob(c) = static_cast<double>(in.noc(c)) / static_cast<double>(in.nobs);
  } else {
    in.prob.fill(1.0);
    const FArray<int> indx = class_order(in.clabel);
    for (int c : indx) {
      const std::string q = question_text({"Enter the prior of class ", trim(in.clabel(c))});
      in.prob(c) = ask_real(q, in.prob(c), 0.0, 100.0);
      log.value(in.prob(c));
    }
    double sum = 0.0;
    for (double p : in.prob) sum += p;
    for (double& p : in.prob) p = p / sum;
  }
}

void ask_costs(AnswerLog& log) {
  Init& in = init();
  const int k = in.nclass;
  for (int a = 1; a <= k; ++a)
    for (int p = 1; p <= k; ++p) in.cost(p, a) = p == a ? 0.0 : 1.0;

  in.costtype = ask_integer("Input 1 for equal, 2 for unequal misclassification costs", 1, 1, 2);
  log.choice(in.costtype);
  if (in.costtype != 2) return;
  const FArray<int> indx = class_order(in.clabel);
  for (int b : indx) {
    for (int a : indx) {
      if (a == b) continue;
      const std::string q = question_text(
          {"Enter cost of misclassifying class ", trim(in.clabel(a)), " as ", trim(in.clabel(b))});
      in.cost(b, a) = ask_real(q, in.cost(b, a), 0.0, 100.0);
      log.value(in.cost(b, a));
    }
  }
}

}  // namespace vardel
