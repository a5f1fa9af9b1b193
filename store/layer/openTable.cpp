#include "store/layer/openTable.h"

#include <cmath>

#include "platform/host.h"
#include "platform/randomSource.h"

namespace {

using Connection = std::weak_ptr<engine::Connection>;

constexpr int lockAttempts = 10;

/// Asks the person; the answer No ends the program on the spot.
void finalDialog(const engine::Error& error, const std::string& status) {
    const std::string text = "Error " + std::to_string(error.number) + ": " + error.text + "\r\nStatus was " +
                             status + "\r\nRetry?";
    if (!ask(text, "Problems opening table")) endProgram();
}

/// The pause grows with the square of the attempt and has a random part. Its length is a 16-bit number, so a
/// conflict that lasts ends the run with an overflow, within six attempts. The count takes no fixed time.
void pauseForLock(Int16 lockCount) {
    host().yield();
    randomSource::reseed(host().milliseconds());
    const double random = std::floor(randomSource::draw() * 3000.0 + 1000.0);
    const Int16 rounds = round16(random * lockCount.toFloat() * lockCount.toFloat());
    [[maybe_unused]] volatile int counted = 0;  // volatile, or the count would be left out
    for (int i = 1; i <= rounds.toInt(); ++i) counted = i;
}

void retryLock(const engine::Error& error, Int16& lockCount, const std::string& status) {
    ++lockCount;
    if (lockCount > lockAttempts) {
        if (!ask(error.text + " Retry?", {}, Icon::Question)) {
            finalDialog(error, status);
            return;
        }
        lockCount = 1;
    }
    pauseForLock(lockCount);
}

/// A handle was missing: one attempt without password and for writing. A failure here is a fault.
Connection openWithPathAlone() {
    try {
        return store::openDatabase({}, engine::Access::Write);
    } catch (const engine::Error& error) {
        throw store::faultOf(error, "opened without its password");
    }
}

/// What the failed statement is to be run on again; an expired connection asks for a new one.
Connection recover(const engine::Error& error, Int16& lockCount, const std::string& status) {
    switch (error.number) {
        case engine::handleNotSet: return openWithPathAlone();
        case engine::couldNotLockFile:
        case engine::lockCountExceeded:
        case engine::lockedByAnother: retryLock(error, lockCount, status); break;
        case engine::changedByAnother: break;
        default: finalDialog(error, status);
    }
    return {};
}

}  // namespace

RecordSet openTable(const std::string& source, bool readOnly, const std::string& status) {
    Int16 lockCount;
    Connection connection;
    while (true) {
        try {
            if (connection.expired())
                connection = store::openDatabase(store::password,
                                                 readOnly ? engine::Access::Read : engine::Access::Write);
            return RecordSet::open(connection, source, readOnly);
        } catch (const engine::Error& error) {
            // The set that did not come to be has closed the file: a box may stand for hours, and a tick may
            // come in at the yield. The next attempt finds a store that was put in the file's place
            // meanwhile.
            connection = recover(error, lockCount, status);
        }
    }
}
