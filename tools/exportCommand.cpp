#include <memory>

#include "platform/progressLine.h"
#include "study/exportDataset.h"
#include "tools/commands.h"
#include "tools/told.h"

namespace commands {

namespace {

int write(const exportDataset::Request& given) {
    return told({}, exportDataset::write(given, progressLine::begin("export")));
}

}  // namespace

Command exportData(CLI::App& program) {
    const auto given = std::make_shared<exportDataset::Request>();
    CLI::App* app = program.add_subcommand(
        "export", "Writes the results of a store as a dataset of CSV files, by the Psych-DS standard.");
    app->add_option("FILE", given->file, "the store file; it is only read")->required();
    app->add_option("DIR", given->folder, "folder of the dataset; it is made, and never written over")
        ->required();
    app->add_option("--name", given->name, "name of the study, of letters and digits")->capture_default_str();
    app->add_option("--pseudonyms", given->pseudonyms,
                    "replace the subjects' names, and leave out what they wrote. KEYFILE says who is who and "
                    "stays out of\n"
                    "the dataset; one that exists is gone on with, so that everybody keeps the pseudonym")
        ->type_name("KEYFILE");
    app->add_flag("--keep-texts", given->keepTexts, "what subjects wrote stays in under pseudonyms too");
    app->footer(
        "Exit status:\n"
        "  0    the dataset was written; standard error notes what was left out\n"
        "  1    nothing was written; standard error says why");
    return {app, [given] { return write(*given); }};
}

}  // namespace commands
