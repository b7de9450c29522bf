#include "host/run/SharedWork.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <map>

namespace {

using OmbreliaHost::SharedWork;

// What became of each piece, in a word.
std::map<std::size_t, std::string> Outcomes(std::size_t pieces, std::size_t jobs, double timeout,
                                            const std::function<std::string(std::size_t)>& work) {
  std::map<std::size_t, std::string> outcomes;
  SharedWork::Plan plan;
  plan.pieces = pieces;
  plan.jobs = jobs;
  plan.timeout = timeout;
  plan.work = work;
  plan.take = [&outcomes](std::size_t piece, const SharedWork::Answer& answer) {
    EXPECT_EQ(outcomes.count(piece), 0u) << "told twice: " << piece;
    outcomes[piece] = answer.timedOut ? "late" : answer.loss ? "lost" : answer.line;
  };
  EXPECT_EQ(SharedWork::Do(plan), 0);
  return outcomes;
}

TEST(SharedWork, DoesEachPieceOnceInOneProcessOrSeveral) {
  for (const std::size_t jobs : {1UL, 4UL}) {
    const auto outcomes =
        Outcomes(1000, jobs, 10, [](std::size_t i) { return "did " + std::to_string(i); });
    ASSERT_EQ(outcomes.size(), 1000u);
    for (const auto& [piece, outcome] : outcomes)
      EXPECT_EQ(outcome, "did " + std::to_string(piece));
  }
}

TEST(SharedWork, DoesNothingWithoutPieces) {
  EXPECT_TRUE(Outcomes(0, 2, 10, [](std::size_t) { return ""; }).empty());
}

TEST(SharedWork, LosesNoMoreThanThePieceThatEndsItsProcess) {
  const auto outcomes = Outcomes(5, 1, 10, [](std::size_t i) {
    if (i == 1) raise(SIGKILL);
    if (i == 3) _exit(3);
    return std::string("ok");
  });
  EXPECT_EQ(outcomes, (std::map<std::size_t, std::string>{
                          {0, "ok"}, {1, "lost"}, {2, "ok"}, {3, "lost"}, {4, "ok"}}));
}

TEST(SharedWork, LosesNoMoreThanThePieceThatNeverEnds) {
  const auto outcomes = Outcomes(3, 1, 0.1, [](std::size_t i) {
    volatile bool goesOn = i == 1;
    while (goesOn) continue;
    return std::string("ok");
  });
  EXPECT_EQ(outcomes, (std::map<std::size_t, std::string>{{0, "ok"}, {1, "late"}, {2, "ok"}}));
}

// It takes no time of the processor.
TEST(SharedWork, LosesNoMoreThanThePieceThatWaitsForEver) {
  const auto outcomes = Outcomes(3, 1, 0.2, [](std::size_t i) {
    while (i == 1) pause();
    return std::string("ok");
  });
  EXPECT_EQ(outcomes, (std::map<std::size_t, std::string>{{0, "ok"}, {1, "late"}, {2, "ok"}}));
}

}  // namespace
