// The policies of simulated subjects: one file each, with the theory that it stands for.
#pragma once

#include <span>
#include <string_view>

#include "pilot/policy.h"

namespace policies {

Mind silent(const Briefing& briefing);
Mind random(const Briefing& briefing);
Mind bayes(const Briefing& briefing);
Mind anchored(const Briefing& briefing);
Mind satisficer(const Briefing& briefing);

/// All of them, in the order of the help.
std::span<const Policy> all();

/// The policy of that name, or none.
const Policy* find(std::string_view name);

}  // namespace policies
