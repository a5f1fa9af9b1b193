// The questionnaire that a new subject answers once.
#pragma once

#include "forms/design.h"

struct FrmNewSubject {
    Control form;
    Control tagLogin, lblLogin, tagMajor, boxMajor, lblGender, optFemale, optMale, tagAge, txtAge, lblHistory,
        txtHistory, btnBegin, btnCancel;

    bool Cleared = false;  ///< all answers passed and the subject is recorded
};

extern FrmNewSubject frmNewSubject;

void designFrmNewSubject();
