#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/pictures.h"
#include "platform/text.h"
#include "store/layer/schema.h"
#include "study/checkRules.h"
#include "study/introText.h"

namespace check {

namespace fs = std::filesystem;

namespace {

void judgeNumbers(Study& study, int row) {
    const Sheet& people = study.sheet("tblPatients");
    for (const schema::Column& column : schema::find("tblPatients")->columns) {
        if (column.type != schema::ColumnType::Short || column.name == "Health") continue;
        study.wholeWithin(people, row, column.name, *column.least, *column.most, Grade::Warning,
                          "the screen shows it as it stands.");
    }
    const std::optional<int> health = study.wholeWithin(
        people, row, "Health", 0, 100, Grade::Error,
        "the patient is dead or saved at the first step, or the program ends with an overflow.");
    if (health && (*health == 0 || *health == 100))
        study.warn(
            people, row, "Health",
            *health == 0 ? "The patient is dead within a moment." : "The patient recovers within a moment.");
}

void judgePicture(Study& study, int row) {
    const Sheet& people = study.sheet("tblPatients");
    const std::string name = people.text(row, "Picture");
    try {
        pictures::check(study.fileOf(name));
    } catch (const Fault& fault) {
        const bool missing = fault.number == static_cast<int>(FaultNumber::FileNotFound);
        study.error(people, row, "Picture",
                    fmt::format("\"{}\" {} in Patients: the program ends when this person comes.", name,
                                missing ? "is no file" : "is no picture that can be read to its end"));
    }
}

void judgeIntro(Study& study, int row) {
    const Sheet& people = study.sheet("tblPatients");
    const std::string name = people.text(row, "Intro");
    const std::optional<std::string> bytes = files::tryRead(study.fileOf(name));
    if (!bytes) {
        study.error(
            people, row, "Intro",
            fmt::format("\"{}\" is no file in Patients: the program ends when this person comes.", name));
        return;
    }
    const std::string intro = text::fromFileBytes(*bytes);
    if (text::trim(intro).empty()) study.warn(people, row, "Intro", fmt::format("\"{}\" is empty.", name));
    const std::vector<introText::Spot> spots = introText::unfit(intro);
    const auto has = [&](introText::Kind kind) {
        return std::ranges::any_of(spots, [&](const introText::Spot& spot) { return spot.kind == kind; });
    };
    if (has(introText::Kind::Apostrophe))
        study.warn(people, row, "Intro",
                   fmt::format("\"{}\" holds an apostrophe: a note with it cannot be removed.", name));
    if (has(introText::Kind::NoText))
        study.warn(people, row, "Intro",
                   fmt::format("\"{}\" holds bytes that are no text; save it as UTF-8.", name));
}

/// The program draws persons until one is new, and gives up after fifty draws.
void judgeSize(Study& study) {
    const Sheet& people = study.sheet("tblPatients");
    if (people.size() == 0)
        return study.error(people, noRow, "Name", "There is no patient: the program ends at the first one.");
    const double lost = std::pow(1.0 - 1.0 / people.size(), 50);
    if (lost > 0.05)
        study.warn(
            people, noRow, "Name",
            fmt::format("{} persons: at the end of a round the program misses the last one in {:.0f} of 100 "
                        "rounds and repeats the case before.",
                        people.size(), lost * 100));
}

}  // namespace

void people(Study& study) {
    const Sheet& sheet = study.sheet("tblPatients");
    if (!sheet.there || !sheet.has("Name")) return;
    judgeSize(study);
    std::error_code failed;
    const bool filesThere = !study.folder.empty() &&
                            (!study.drafts.empty() || fs::is_directory(study.folder + "/Patients", failed));
    if (study.folder.empty()) {
        study.note(sheet, noRow, "Picture",
                   "Pictures and introductions have not been looked at: the store does not stand in a "
                   "study's folder "
                   "data.");
    } else if (!filesThere && sheet.size() > 0) {
        study.error(sheet, noRow, "Picture",
                    fmt::format("There is no folder {}/Patients: the program ends at the first patient.",
                                study.folder));
    }
    for (int row = 0; row < sheet.size(); ++row) {
        study.needsText(sheet, row, "Name");
        study.truth(sheet, row, "Male?");
        judgeNumbers(study, row);
        if (study.needsText(sheet, row, "Picture") && filesThere) judgePicture(study, row);
        if (sheet.text(row, "Intro").empty()) {
            study.warn(sheet, row, "Intro", "There is no introduction: the text of the last person stays.");
        } else if (filesThere) {
            judgeIntro(study, row);
        }
    }
}

}  // namespace check
