// The results of a study while they come in: how far it is, its subjects and their patients, read again every
// few seconds. It only reads, in a thread of its own, in steps that keep no session waiting.
#pragma once

#include "studio/page.h"

namespace resultsPage {

Page make();

}  // namespace resultsPage
