// One paper from its beginning to its end.
#include "papier/job.h"

#include <cstdio>
#include <cstring>

#include "grx_plus_erreurs.h"
#include "papier/held_signal.h"
#include "papier/print_command.h"
#include "papier/utf8.h"

namespace papier {

namespace {

// A mark of one sheet may be long; one of several should be on few of them.
constexpr std::size_t kLongMark = 8192, kShortMark = 256;

void tell_error(const TargetFile& file, std::span<char> told) {
    if (file.failed()) std::snprintf(told.data(), told.size(), "%s", std::strerror(file.error()));
}

bool copy_text(const char* text, Growing<char>& into) {
    const char* const given = text != nullptr ? text : "";
    into.clear();
    return into.append(std::span<const char>(given, std::strlen(given) + 1));
}

} // namespace

INT Job::keep_order(const GRX_PAPIER& paper) {
    copies_ = paper.copies;
    return copy_text(paper.imprimante, printer_) && copy_text(paper.titre, title_) ? 1 : GRX_ECHEC_MEMOIRE;
}

INT Job::begin(const GRX_PAPIER& paper, const Layout& layout, std::span<char> told) {
    kind_ = paper.genre;
    layout_ = layout;
    signs_ = paper.reperes == 2 || (paper.reperes == 1 && layout.sheets() > 1) ? 1 : 0;
    if (const INT code = keep_order(paper); code != 1) return code;
    if (const INT code = file_.open(printed() ? nullptr : paper.fichier); code != 1) {
        tell_error(file_, told);
        return code;
    }
    if (plotted()) {
        hpgl_.begin(paper, layout, file_);
    } else if (const INT code = cairo_.begin(paper, layout, file_); code != 1) {
        std::snprintf(told.data(), told.size(), "%s", cairo_.status_text());
        return code;
    }
    Marked& marks = recorded() ? static_cast<Marked&>(recorder_) : cairo_;
    if (!drafter_.begin(paper, layout, marks, layout.sheets() > 1 ? kShortMark : kLongMark)) return GRX_ECHEC_MEMOIRE;
    begin_page();
    return 1;
}

void Job::begin_page() {
    recorder_.clear();
    if (!recorded()) cairo_.begin_sheet(0, 0);
}

void Job::put_sheet(INT column, INT row) {
    if (plotted()) {
        hpgl_.put_sheet(recorder_, signs_ != 0, column, row);
        return;
    }
    cairo_.begin_sheet(column, row);
    recorder_.replay(cairo_, layout_.shown(column, row));
    cairo_.end_sheet(column, row);
}

void Job::end_page() {
    drafter_.flush();
    if (!recorded()) {
        cairo_.end_sheet(0, 0);
        return;
    }
    for (INT row = 0; row < layout_.rows; ++row)
        for (INT column = 0; column < layout_.columns; ++column) put_sheet(column, row);
}

INT Job::code_so_far() const {
    if (!drafter_.complete() || !recorder_.complete() || !hpgl_.complete()) return GRX_ECHEC_MEMOIRE;
    if (file_.failed()) return GRX_ECHEC_FICHIER;
    return drafter_.pictures_fit() ? 1 : GRX_ECHEC_FORMAT;
}

INT Job::next_page() {
    const HeldSignal signal; // cairo has files of its own meanwhile
    end_page();
    begin_page();
    return code_so_far();
}

void Job::bookmark(const char* utf8) {
    if (!plotted()) cairo_.bookmark(utf8);
}

INT Job::deliver(std::span<char> told) {
    if (!printed()) {
        if (file_.take_name()) return 1;
        tell_error(file_, told);
        return GRX_ECHEC_FICHIER;
    }
    if (!file_.complete()) {
        tell_error(file_, told);
        return GRX_ECHEC_FICHIER;
    }
    return print({file_.temporary_name(), printer_.data(), title_.data(), copies_}, told);
}

INT Job::finish(std::span<char> told) {
    const HeldSignal signal;
    end_page();
    INT code = 1;
    if (plotted()) {
        hpgl_.finish();
    } else {
        code = cairo_.finish();
        if (code != 1) std::snprintf(told.data(), told.size(), "%s", cairo_.status_text());
    }
    if (const INT so_far = code_so_far(); so_far != 1) code = so_far;
    if (code == GRX_ECHEC_FICHIER) tell_error(file_, told); // which says more than cairo
    return code == 1 ? deliver(told) : code;
}

} // namespace papier
