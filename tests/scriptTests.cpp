#include <nlohmann/json.hpp>

#include "forms/frmTavix.h"
#include "forms/person.h"
#include "headless/commands.h"
#include "headless/player.h"
#include "stage/virtualTime.h"
#include "tests/stage.h"

namespace {

std::string printedBy(const std::string& line) {
    testing::internal::CaptureStdout();
    commands::execute(line);
    return testing::internal::GetCapturedStdout();
}

class Script : public Logic {
protected:
    Script() { commands::setPerson(player::onRecords()); }
};

TEST_F(Script, ABadLineIsRefusedWithAReason) {
    for (const char* line : {"get frmTavix",
                             "get nothing.text",
                             "get frmTavix.",
                             "get .",
                             "state a~b",
                             "state a/b",
                             "state patients(",
                             "state patients(x)",
                             "state \"\"",
                             "key frmLogin.txtName -5",
                             "key frmLogin.txtName 55296",
                             "draw 0.5x999999999",
                             "draw 0.5x-1",
                             "draw 1",
                             "wait 99999999999",
                             "wait -1",
                             "wait",
                             "run x until frmLogin.caption = Login",
                             "run 5 until frmTavix = 3",
                             "mark frmLogin.txtName a 1",
                             "click \"frmLogin.txtName",
                             "expect state",
                             "expect box.text x",
                             "sql \"\"",
                             "try try box",
                             "type frmLogin.txtName a\xFF",
                             "bogus"}) {
        EXPECT_THROW(commands::execute(line), Refused) << line;
    }
    // Each word was once kept with all behind it: gigabytes.
    std::string words = "type nothing";
    for (int i = 0; i < 100'000; ++i) words += " word";
    EXPECT_THROW(commands::execute(words), Refused);
}

TEST_F(Script, ListsAreJsonWhateverTheirTextsHold) {
    const std::string note = "01) he said \"ow\" \\ a\r\nb";
    addItem(frmTavix.lstSymptoms, note);
    EXPECT_EQ(nlohmann::json::parse(printedBy("get frmTavix.lstSymptoms.items")).at(0), note);
    commands::execute(R"(expect frmTavix.lstSymptoms.items ["01) he said \"ow\" \\ a\r\nb"])");
    setCaption(frmTavix.lblWelcome, note);
    EXPECT_EQ(printedBy("get frmTavix.lblWelcome.caption"), "01) he said \"ow\" \\\\ a\\r\\nb\n");
}

TEST_F(Script, TimersFireInOrderWhateverTheirHandlersDoToThem) {
    virtualTime::begin("2026-01-05 09:30:00");
    Control& a = frmTavix.tmrClock;
    Control& b = frmTavix.tmrHealth;
    Control& c = frmTavix.tmrTestMessage;
    std::string fired;
    const auto note = [&](const char* name) {
        fired += name + std::to_string(virtualTime::milliseconds()) + " ";
    };
    a.on.timer = [&] { note("a"); };
    b.on.timer = [&] {
        note("b");
        if (virtualTime::milliseconds() == 40) setEnabled(a, false);
    };
    c.on.timer = [&] {
        note("c");
        setInterval(c, c.interval + 1);
        virtualTime::pass(16, [] { return false; });  // a box that stands for 16 ms
    };
    const auto begin = [](Control& timer, int interval) {
        setInterval(timer, interval);
        setEnabled(timer, true);
    };
    begin(b, 20);
    begin(a, 10);
    virtualTime::pass(30, [] { return false; });
    EXPECT_EQ(fired, "a10 b20 a20 a30 ");
    // What is due with a timer that switches it off does not fire; unloading a form switches its timers off.
    virtualTime::pass(30, [] { return false; });
    EXPECT_EQ(fired, "a10 b20 a20 a30 b40 b60 ");
    fired.clear();
    designFrmTavix();
    begin(c, 5);
    virtualTime::pass(18, [] { return false; });
    EXPECT_EQ(fired, "c65 c83 c104 ");
}

}  // namespace
