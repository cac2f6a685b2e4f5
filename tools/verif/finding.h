// What a checker of grx-verif says about one line of a file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace verif {

// noted: taken, and something about it is worth knowing.
enum class Verdict { taken, noted, skipped, refused };

struct Finding {
    int line = 0; // from 1
    Verdict verdict = Verdict::skipped;
    std::string text;
};

using Findings = std::vector<Finding>;

inline std::string_view name_of(Verdict verdict) {
    switch (verdict) {
    case Verdict::taken: return "taken";
    case Verdict::noted: return "note";
    case Verdict::skipped: return "skipped";
    case Verdict::refused: return "refused";
    }
    return "";
}

inline bool has_refusals(const Findings& findings) {
    for (const auto& finding : findings)
        if (finding.verdict == Verdict::refused) return true;
    return false;
}

} // namespace verif
