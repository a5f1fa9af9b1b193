#include <memory>

#include "study/pilotReport.h"
#include "study/report.h"
#include "tools/commands.h"

namespace commands {

namespace {

struct Arguments {
    std::string file;
    std::string page;
    std::string patient;
    bool byPolicy = false;
};

}  // namespace

Command report(CLI::App& program) {
    const auto given = std::make_shared<Arguments>();
    CLI::App* app = program.add_subcommand("report", "Writes a page with plots and tables of the results.");
    app->add_option("FILE", given->file, "the store file, which is only read")->required();
    app->add_option("OUT", given->page, "the page of HTML to write; a report that stands there is replaced")
        ->required();
    app->add_option("--patient", given->patient,
                    "the patient whose time line is shown first; else the last one")
        ->type_name("SUBJECT:TRIAL");
    app->add_flag("--by-policy", given->byPolicy,
                  "of simulated subjects: what each policy reached in each scenario, and no single patients")
        ->excludes("--patient");
    app->footer(
        "Exit status:\n"
        "  0    the page was written; a browser opens it without a network\n"
        "  1    nothing was written; standard error says why");
    return {app, [given] {
                if (given->byPolicy) {
                    pilotReport::write(given->page, given->file, {});
                } else {
                    ::report::write(given->file, given->page, given->patient);
                }
                return 0;
            }};
}

}  // namespace commands
