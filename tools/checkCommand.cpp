#include <filesystem>
#include <iostream>
#include <memory>

#include "study/check.h"
#include "tools/commands.h"

namespace commands {

namespace {

struct Arguments {
    std::string file;
    std::string folder;
    bool json = false;
};

int statusOf(const std::vector<check::Finding>& findings) {
    int status = 0;
    for (const check::Finding& finding : findings) {
        if (finding.grade == check::Grade::Error) return 2;
        if (finding.grade == check::Grade::Warning) status = 1;
    }
    return status;
}

int look(const Arguments& arguments) {
    std::error_code failed;
    if (!arguments.folder.empty() && !std::filesystem::is_directory(arguments.folder, failed)) {
        std::cerr << arguments.folder << ": there is no such folder\n";
        return wrongCall;
    }
    try {
        const std::string folder =
            arguments.folder.empty() ? check::folderOf(arguments.file) : arguments.folder;
        const std::vector<check::Finding> findings = check::look(arguments.file, folder);
        if (arguments.json) {
            std::cout << check::jsonOf(findings) << '\n';
        } else {
            printFindings(findings);
        }
        return statusOf(findings);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return wrongCall;
    }
}

}  // namespace

void printFindings(const std::vector<check::Finding>& findings) {
    for (const check::Finding& finding : findings) std::cout << check::lineOf(finding) << '\n';
    if (findings.empty()) std::cout << "The check found nothing.\n";
}

Command check(CLI::App& program) {
    const auto given = std::make_shared<Arguments>();
    CLI::App* app =
        program.add_subcommand("check", "Looks a study through for what would end or spoil a session.");
    app->add_option("FILE", given->file, "the store file")->required();
    app->add_option(
        "--folder", given->folder,
        "the study's folder, with Patients in it; otherwise the one above the store's folder data");
    app->add_flag("--json", given->json, "print the findings for programs");
    app->footer(
        "A finding is an error (a session would end or misbehave), a warning (legal, rarely meant) or a "
        "note,\n"
        "and names table, row (from 1, the line of column names not counted) and column. Nothing is "
        "changed.\n"
        "\n"
        "Exit status:\n"
        "  0    nothing worse than a note was found\n"
        "  1    a warning was found\n"
        "  2    an error was found\n"
        "  3    the file could not be read, or the call was wrong");
    return {app, [given] { return look(*given); }};
}

}  // namespace commands
