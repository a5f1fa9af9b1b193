// silent: nobody at the desk. What a patient comes to without any help: the walk of health alone, and so the
// base line that every other policy is held against. A diagnosis that cannot be left otherwise is left by the
// least that it takes, one disease.
#include "pilot/policies.h"

namespace policies {

Mind silent(const Briefing& briefing) {
    return [diseases = briefing.task.diseases](const Sight& sight) {
        if (sight.mustDiagnose && !diseases.empty()) return act::diagnose({{diseases.front(), 100}});
        return act::wait();
    };
}

}  // namespace policies
