#include <nlohmann/json.hpp>

#include "forms/frmTavix.h"
#include "forms/person.h"
#include "headless/commands.h"
#include "headless/player.h"
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
                             "bogus"}) {
        EXPECT_THROW(commands::execute(line), Refused) << line;
    }
}

TEST_F(Script, ListsAreJsonWhateverTheirTextsHold) {
    const std::string note = "01) he said \"ow\" \\ a\r\nb";
    addItem(frmTavix.lstSymptoms, note);
    EXPECT_EQ(nlohmann::json::parse(printedBy("get frmTavix.lstSymptoms.items")).at(0), note);
    commands::execute(R"(expect frmTavix.lstSymptoms.items ["01) he said \"ow\" \\ a\r\nb"])");
    setCaption(frmTavix.lblWelcome, note);
    EXPECT_EQ(printedBy("get frmTavix.lblWelcome.caption"), "01) he said \"ow\" \\\\ a\\r\\nb\n");
}

}  // namespace
