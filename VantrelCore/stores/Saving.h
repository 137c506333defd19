// When a store's change is written to its file.
#pragma once

#include <functional>
#include <utility>

namespace vantrel {

// By default before the call returns, as for everything that the user edits; the call then returns whether
// the file was written.
class Saving {
public:
    // Called on the main thread.
    using Done = std::function<void(bool isWritten)>;

    Saving() = default;

    // Soon, in the background: for what the program records by itself. The change shows at once, and the call
    // returns true; `done` is called once the file has been written or could not be. If it could not, the
    // store returns to the last content that was.
    [[nodiscard]] static Saving later(Done done = {}) {
        Saving saving;
        saving.m_isLater = true;
        saving.m_done = std::move(done);
        return saving;
    }

    [[nodiscard]] bool isLater() const { return m_isLater; }

    void tell(bool isWritten) const {
        if (m_done) {
            m_done(isWritten);
        }
    }

private:
    bool m_isLater = false;
    Done m_done;
};

} // namespace vantrel
