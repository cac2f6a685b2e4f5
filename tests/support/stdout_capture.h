// What the process writes to its standard output (the descriptor, so printf of any library counts) while this lives.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace grxtest {

class StdoutCapture {
  public:
    StdoutCapture();
    ~StdoutCapture() { restore(); }
    StdoutCapture(const StdoutCapture&) = delete;
    StdoutCapture& operator=(const StdoutCapture&) = delete;

    std::string text();               // everything so far
    std::vector<std::string> lines(); // the same, cut at each newline
    void restore();                   // ends the capture; text() still answers

  private:
    int saved_ = -1;
    int captured_ = -1;
    std::string text_;
};

// What a call gives, and prints.
struct Outcome {
    int result;
    std::string printed;
};
Outcome outcome_of(const std::function<int()>& call);

} // namespace grxtest
