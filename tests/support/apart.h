// Runs each test in a process of its own without starting the program anew, which takes as long as a short test when
// there are sanitizers.
#pragma once

namespace grxtest {

/// Takes the argument --apart out of the arguments. True when it was there.
bool takes_apart(int& argc, char** argv);

/// Runs each test that the filter names by `run` in a child made by fork; prints what a failed one said and the names. Returns
/// the program's exit code: 0 when all passed, and there was one.
int run_apart(int (*run)());

} // namespace grxtest
