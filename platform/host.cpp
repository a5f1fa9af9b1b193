#include "platform/host.h"

#include <cstdlib>

Host& host() {
    static Host instance;
    return instance;
}

void tell(const std::string& text, const std::string& title) {
    host().messageBox({text, title, Buttons::Ok, Icon::None});
}

bool ask(const std::string& text, const std::string& title, Icon icon) {
    return host().messageBox({text, title, Buttons::YesNo, icon}) == Answer::Yes;
}

void endProgram(int status) {
    host().endProgram(status);
    std::abort();  // a host that returns from its end would let a stopped run go on
}
