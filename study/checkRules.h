// The rules of `check`, by table. Each adds what it finds, and leaves out what only follows from a finding of
// an earlier one: they run in this order.
#pragma once

#include "study/checkStudy.h"

namespace check {

void columns(Study& study);        ///< tables and columns that a session names
void scenarioNames(Study& study);  ///< tblAppDefault: names
void pairing(Study& study);        ///< scenarios and base rates, each in the other's place
void strangers(Study& study);      ///< rows of scenarios and test lengths that nobody uses
void baseRates(Study& study);      ///< tblBaseRates: counts, rates, their sum
void symptoms(Study& study);       ///< tblDiseaseSymptom: rows, counts, chances
void treatments(Study& study);     ///< tblTreatments
void options(Study& study);        ///< tblAppDefault: ranges, costs, flags
void clock(Study& study);          ///< tblAppDefault: start and length
void meters(Study& study);         ///< tblAppDefault: yoked meters
void words(Study& study);          ///< tblVocabulary
void people(Study& study);         ///< tblPatients and the files in Patients/
void testLengths(Study& study);    ///< tblTests
void subjects(Study& study);       ///< SubjectInfo, SubjectSettings

}  // namespace check
