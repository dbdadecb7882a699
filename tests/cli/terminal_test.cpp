// The command line at a terminal: its pager, and the prompt for a password.
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "cli/small_company.h"
#include "support/terminal_run.h"

namespace tz::test {
namespace {

using Arguments = std::vector<std::string>;

class PagerTest : public ::testing::Test {
 protected:
  PagerTest() { fillSmallCompany(ledger_.keeper()); }

  // What the terminal shows of a report with this pager, without colours.
  std::string shownWith(const std::string& pager, int expected = 0) {
    TerminalRun run(smallReportWords(ledger_.address()), {"PAGER=" + pager, "NO_COLOR=1", "TZ_PASSWORD=绝密"});
    EXPECT_EQ(run.nextState(), expected) << pager;
    return run.shown();
  }

  TestLedger ledger_{Engine::sqlite};
  TempFolder folder_;
};

TEST_F(PagerTest, ThatCannotRunLosesNothing) {
  const auto plain = runProgram(smallReportWords(ledger_.address())).out;
  for (const auto* pager :
       {"/nowhere/pager", "no-such-pager -x", "false", "exit 3", "kill -SEGV $$", "head -c 5; false"}) {
    const auto shown = shownWith(pager);
    EXPECT_NE(shown.find(plain), std::string::npos) << pager << shown;
    EXPECT_NE(shown.find("改为直接输出"), std::string::npos) << pager;
  }
  EXPECT_EQ(shownWith("cat"), plain);
  EXPECT_EQ(shownWith("sed -n 1p").find("改为"), std::string::npos) << "left early is no failure";
}

TEST_F(PagerTest, DoesNotLearnThePassword) {
  const auto seen = folder_.file("environment");
  (void)shownWith("env >" + seen);
  const auto environment = fileBytes(seen);
  EXPECT_NE(environment.find("PAGER="), std::string::npos);
  EXPECT_EQ(environment.find("绝密"), std::string::npos);
}

class PasswordPrompt : public ::testing::Test {
 protected:
  PasswordPrompt() {
    fillSmallCompany(ledger_.keeper());
    // The password is 会计2006.
    ledger_.fill("zOperator", R"(lId | sName | bAll | sPassHash
        1 | 主管 | 1 | $argon2id$v=19$m=8,t=1,p=1$8KjgseW6RWjVshLwEFx87w$gqRKBVcvaRrnyx1ukfLd3tgM/1kHqIkjAKRW/HwMd1Q)");
  }
  [[nodiscard]] Arguments words() const { return smallReportWords(ledger_.address(), {"--operator", "主管"}); }

  TestLedger ledger_{Engine::sqlite};
};

TEST_F(PasswordPrompt, HidesWhatIsTyped) {
  TerminalRun run(words(), {"PAGER=cat"});
  ASSERT_TRUE(run.await("口令："));
  EXPECT_FALSE(run.echoes());
  run.type("会计2006\n");
  EXPECT_EQ(run.nextState(), 0);
  EXPECT_TRUE(run.echoes());
  EXPECT_EQ(run.shown().find("会计2006"), std::string::npos);
  EXPECT_NE(run.shown().find("三栏式明细帐"), std::string::npos);
}

TEST_F(PasswordPrompt, RefusesAWrongOneAndHidesItToo) {
  for (const std::string typed : {"会计2007", "会计2006 ", ""}) {
    TerminalRun run(words(), {"PAGER=cat"});
    ASSERT_TRUE(run.await("口令："));
    run.type(typed + "\n");
    EXPECT_EQ(WEXITSTATUS(run.nextState()), 4) << typed;
    EXPECT_TRUE(run.echoes());
    const auto shown = run.shown();
    EXPECT_NE(shown.find("操作员姓名或口令不对"), std::string::npos) << shown;
    EXPECT_EQ(shown.find("会计200"), std::string::npos) << shown;
    EXPECT_EQ(shown.find("明细帐"), std::string::npos) << "figures shown without a password";
  }
}

TEST_F(PasswordPrompt, GivesTheTerminalBackWhateverEndsIt) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    TerminalRun run(words());
    ASSERT_TRUE(run.await("口令："));
    signal == SIGINT ? run.type("\x03") : run.send(signal);
    const int state = run.nextState();
    EXPECT_TRUE(WIFSIGNALED(state) && WTERMSIG(state) == signal) << signal << ' ' << state;
    EXPECT_TRUE(run.echoes()) << signal;
  }
}

TEST_F(PasswordPrompt, StopsAndGoesOn) {
  TerminalRun run(words(), {"PAGER=cat"});
  ASSERT_TRUE(run.await("口令："));
  run.type("\x1a");
  EXPECT_TRUE(WIFSTOPPED(run.nextState()));
  EXPECT_TRUE(run.echoes()) << "the shell gets a terminal that shows what is typed";
  run.send(SIGCONT);
  ASSERT_TRUE(run.await("口令："));
  EXPECT_FALSE(run.echoes());
  run.type("会计2006\n");
  EXPECT_EQ(run.nextState(), 0);
  EXPECT_TRUE(run.echoes());
}

TEST_F(PasswordPrompt, WithoutAnAnswerIsNoLogon) {
  TerminalRun run(words());
  ASSERT_TRUE(run.await("口令："));
  run.type("\x04");
  EXPECT_EQ(WEXITSTATUS(run.nextState()), 4);
  EXPECT_TRUE(run.echoes());
}

}  // namespace
}  // namespace tz::test
