// Sign-in: the subject's name and the scenario.
#pragma once

#include "forms/design.h"

struct FrmLogin {
    Control form;
    Control tagName, txtName, tagType, cboType, cmdOk, cmdQuit;

    bool IsNew = false;   ///< this run's subject came through the questionnaire
    bool QuitMe = false;  ///< the sign-in ended with cmdQuit
};

extern FrmLogin frmLogin;

void designFrmLogin();
