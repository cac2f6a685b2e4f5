// The records that the application receives: polls grx_digitaliseur without waiting and keeps all of them.
#pragma once

#include "tests/support/wait.h"

#include "xt_f.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace grxtest {

class Events {
  public:
    using Match = std::function<bool(const GRX_EVENEMENT&)>;

    // One call of grx_digitaliseur(&record, 0). True when it delivered a record, which is then kept.
    bool poll();
    // Polls until the server has answered everything sent so far and nothing is pending.
    void drain();
    // Polls; blocks a moment on the connection when there is nothing.
    void step();

    // The first record, delivered since the last wait or clear, of that type (that satisfies `match`); polls until it
    // comes. Records before it stay in seen() and are not looked at again. Empty when the deadline passed.
    std::optional<GRX_EVENEMENT> wait(INT type, Milliseconds deadline = default_deadline);
    std::optional<GRX_EVENEMENT> wait(const Match& match, Milliseconds deadline = default_deadline);

    const std::vector<GRX_EVENEMENT>& seen() const { return seen_; }
    std::vector<INT> types() const; // of all records seen, in order
    int count(INT type) const;
    std::string describe() const; // for failure messages: "2 window 1, 15 window 1"
    void clear();

  private:
    std::vector<GRX_EVENEMENT> seen_;
    std::size_t unlooked_ = 0; // first record that no wait has looked at
};

} // namespace grxtest
