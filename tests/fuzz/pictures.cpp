// Pictures of any bytes: each is taken, or refused by the one fault for it, and the answer does not depend on
// what was asked before.
#include "platform/pictures.h"

#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "platform/fault.h"
#include "tests/fuzz/frame.h"

namespace {

namespace fs = std::filesystem;

/// A picture is known again by its size and the time of its writing: each input gets a time of its own.
bool isTaken(const std::string& bytes) {
    static const fs::path file = fs::temp_directory_path() / ("tavix-fuzz-" + std::to_string(getpid()));
    static fs::file_time_type time;
    std::ofstream(file, std::ios::binary) << bytes;
    fs::last_write_time(file, time += std::chrono::seconds(1));
    bool taken = true;
    try {
        pictures::check(file.string());
    } catch (const Fault& fault) {
        fuzz::hold(fault.number == static_cast<int>(FaultNumber::InvalidPicture), fault.text);
        fuzz::hold(fault.text.find(file.string()) != std::string::npos, "the fault names the file");
        taken = false;
    }
    fs::remove(file);
    return taken;
}

}  // namespace

void fuzz::tryInput(const std::string& input) {
    const bool taken = isTaken(input);
    hold(isTaken(input) == taken, "the second look sees what the first saw");
    if (taken) hold(isTaken(input + "some bytes"), "what stands behind a picture does not matter");
}
