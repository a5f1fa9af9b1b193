// tavix-pilot: simulated subjects play the real program in virtual time and leave rows as people do.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iostream>

#include "pilot/pilotRun.h"
#include "pilot/policies.h"
#include "pilot/runReport.h"
#include "platform/files.h"
#include "platform/privacy.h"
#include "study/pilotReport.h"

namespace {

constexpr int interrupted = 130;
constexpr int wrongCall = 3;

/// "2/8": the second of eight parts.
bool takeShard(const std::string& text, Run& run) {
    char rest = 0;
    return std::sscanf(text.c_str(), "%9d/%9d%c", &run.shard, &run.shards, &rest) == 2 && run.shard >= 1 &&
           run.shard <= run.shards;
}

void takePolicies(const std::vector<std::string>& names, Run& run) {
    for (const std::string& name : names) {
        for (const Policy& policy : policies::all()) {
            const bool listed = std::ranges::find(run.policies, &policy) != run.policies.end();
            if (!listed && (name == policy.name || name == "all")) run.policies.push_back(&policy);
        }
    }
}

std::string policyLines() {
    std::string lines;
    for (const Policy& policy : policies::all())
        lines += fmt::format("  {:<12}{}\n", policy.name, policy.meaning);
    return lines;
}

std::vector<std::string> policyNames() {
    std::vector<std::string> names{"all"};
    for (const Policy& policy : policies::all()) names.push_back(policy.name);
    return names;
}

/// What the command line sets beside the run itself.
struct Given {
    std::vector<std::string> policies;
    std::string shard;
    std::string page;
};

void addPeople(CLI::App& app, Setup& setup) {
    const auto time = CLI::Range(0.0, 600'000.0);
    app.add_option("--mu", setup.times.mu, "response times: mean of the normal part, in milliseconds")
        ->capture_default_str()
        ->check(time);
    app.add_option("--sigma", setup.times.sigma, "its standard deviation")
        ->capture_default_str()
        ->check(time);
    app.add_option("--tau", setup.times.tau, "mean of the exponential part")
        ->capture_default_str()
        ->check(time);
    app.add_option("--share", setup.parameters.share, "anchored: share of the way from base rate to chance")
        ->capture_default_str()
        ->check(CLI::Range(0.0, 1.0));
    app.add_option("--threshold", setup.parameters.threshold, "satisficer: belief in percent that suffices")
        ->capture_default_str()
        ->check(CLI::Range(1, 100));
}

void addOptions(CLI::App& app, Run& run, Given& given) {
    app.add_option("--folder", run.setup.folder,
                   "the program's folder, with data and Patients in it; nothing "
                   "is written there");
    app.add_option("--scenario", run.scenario, "a scenario of the sign-in, or all")->required();
    app.add_option("--subjects", run.subjects, "subjects for each scenario and policy")
        ->required()
        ->check(CLI::Range(1, 9'999'999));
    app.add_option("--trials", run.setup.trials, "patients of each subject")
        ->required()
        ->check(CLI::Range(1, 32'000));
    app.add_option("--policy", given.policies, "how they decide: a policy, several parted by commas, or all")
        ->required()
        ->delimiter(',')
        ->check(CLI::IsMember(policyNames()));
    app.add_option("--seed", run.setup.seed, "number from which all chance follows")->capture_default_str();
    app.add_option("--out", run.file, "the store that is made")->required();
    app.add_option("--report", given.page,
                   "a page of HTML with the figures; a report that stands there is replaced")
        ->option_text("FILE");
    app.add_option("--jobs", run.jobs, "processes at work at once")
        ->capture_default_str()
        ->check(CLI::Range(1, 1024));
    app.add_option("--shard", given.shard,
                   "play one of n equal parts only; tavixdb merge makes them one store")
        ->option_text("I/N");
    app.add_flag("--resume", run.resume,
                 "go on with the store of the same command that was broken off, or begin it");
    app.add_option("--now", run.setup.now, "date and time at which each session begins")
        ->capture_default_str();
    app.add_option("--limit", run.setup.limit,
                   "minutes after which a subject goes home from a patient whose trial does not end")
        ->capture_default_str()
        ->check(CLI::Range(1, 30'000));
    addPeople(app, run.setup);
    app.footer("Policies:\n" + policyLines() +
               "\n"
               "The same seed gives the same rows, whatever the number of jobs and shards.\n"
               "\n"
               "Exit status:\n"
               "  0    all subjects are in the store\n"
               "  1    the run could not begin or go on; standard error says why\n"
               "  3    the call cannot be understood\n"
               "  130  broken off (Ctrl-C); what is finished is whole, and --resume goes on");
}

}  // namespace

int main(int argc, char** argv) {
    privacy::begin();
    CLI::App app{"Plays Tavix with simulated subjects, to see what a scenario does before people come."};
    Run run;
    run.setup.folder = files::folderOfProgram();
    Given given;
    addOptions(app, run, given);
    try {
        app.parse(argc, argv);
        takePolicies(given.policies, run);
        if (!given.shard.empty() && !takeShard(given.shard, run))
            throw CLI::ValidationError("--shard", "takes I/N with I from 1 to N, and not " + given.shard);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : wrongCall;
    }
    try {
        if (!given.page.empty()) pilotReport::refuseOther(given.page);
        const auto [whole, done, all] = pilotRun::play(run);
        std::cout << fmt::format("{}: {} of {} subjects\n", run.file, done, all);
        if (whole) {
            runReport::tell(std::cout, run.file, run.setup.folder, given.page);
            return 0;
        }
        std::cerr << "broken off; the same command with --resume goes on\n";
        return interrupted;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
