// The splash: on show only while the program counts at its start.
#pragma once

#include "forms/design.h"

struct FrmSplash {
    Control form;
    Control fraMainFrame, Picture1, lblProductName, lblVersion, lblPlatform;
};

extern FrmSplash frmSplash;

void designFrmSplash();
