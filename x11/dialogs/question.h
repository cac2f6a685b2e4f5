// The question whether a file may be replaced.
#pragma once

namespace grx {

/// The question is on show and waits for its answer.
bool question_on_show();

} // namespace grx
