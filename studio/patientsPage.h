// The roster: who comes as a patient, with picture and introduction, and the page "Patient" as the subject
// sees it.
#pragma once

#include "studio/page.h"

namespace patientsPage {

Page make();

}  // namespace patientsPage
