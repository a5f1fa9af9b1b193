#include "screens/wiring.h"

#include "screens/mainScreen.h"
#include "screens/modAppDisplay.h"
#include "screens/optionsDialog.h"
#include "screens/signIn.h"
#include "trial/run/run.h"

namespace wiring {

void wireForms() {
    run::reset();
    signIn::wire();
    optionsDialog::wire();
    mainScreen::wire();
    modAppDisplay::wire();
}

}  // namespace wiring
