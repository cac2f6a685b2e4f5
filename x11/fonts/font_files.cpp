// Which file has the font of a name, and which families there are, for texts in drawings: by fontconfig. Its tables are the
// process's, because the toolkit uses them as well: they are not freed.
#include "fonts/font_files.h"

#include <fontconfig/fontconfig.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "pure/text.h"
#include "grx_plus_erreurs.h"

namespace grx {

namespace {

const FcChar8* fc(const char* text) {
    return reinterpret_cast<const FcChar8*>(text);
}

const char* chars(const FcChar8* text) {
    return reinterpret_cast<const char*>(text);
}

// A pattern or a set of fonts of fontconfig's.
template <class Thing, void (*destroy)(Thing*)>
class Owned {
  public:
    explicit Owned(Thing* thing) : thing_(thing) {}
    ~Owned() {
        if (thing_ != nullptr) destroy(thing_);
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    Thing* get() const { return thing_; }
    explicit operator bool() const { return thing_ != nullptr; }

  private:
    Thing* thing_;
};
using Pattern = Owned<FcPattern, FcPatternDestroy>;
using Objects = Owned<FcObjectSet, FcObjectSetDestroy>;
using FontSet = Owned<FcFontSet, FcFontSetDestroy>;

const FcChar8* family_of(const FcPattern* pattern, int i) {
    FcChar8* family = nullptr;
    return FcPatternGetString(pattern, FC_FAMILY, i, &family) == FcResultMatch ? family : nullptr;
}

// Names that stand for whatever the system has of the kind.
bool is_generic(const FcChar8* family) {
    constexpr std::array generic{
        "sans", "sans-serif", "sans serif", "serif", "mono", "monospace", "cursive", "fantasy", "system-ui"};
    return std::any_of(generic.begin(), generic.end(),
        [family](const char* name) { return FcStrCmpIgnoreCase(family, fc(name)) == 0; });
}

bool has_family(const FcPattern* font, const FcChar8* wanted) {
    for (int i = 0; const FcChar8* family = family_of(font, i); ++i)
        if (FcStrCmpIgnoreCase(family, wanted) == 0) return true;
    return false;
}

// Fontconfig always finds some font: that it is one of those asked for has to be seen.
bool is_wanted(const FcPattern* found, const FcPattern* asked) {
    if (family_of(asked, 0) == nullptr) return true;
    for (int i = 0; const FcChar8* family = family_of(asked, i); ++i)
        if (is_generic(family) || has_family(found, family)) return true;
    return false;
}

bool take_file(const FcPattern* found, FontFile& file) {
    FcChar8* path = nullptr;
    int index = 0;
    if (FcPatternGetString(found, FC_FILE, 0, &path) != FcResultMatch) return false;
    if (FcPatternGetInteger(found, FC_INDEX, 0, &index) == FcResultMatch) file.index = index;
    return copy_text(file.path.data(), file.path.size(), chars(path));
}

INT find_family(const char* name, FontFile& file) {
    const Pattern asked(FcNameParse(fc(name)));
    if (!asked) return GRX_ECHEC_ABSENT;
    const Pattern filled(FcPatternDuplicate(asked.get()));
    if (!filled) return GRX_ECHEC_MEMOIRE;
    FcPatternAddBool(filled.get(), FC_OUTLINE, FcTrue);
    FcConfigSubstitute(nullptr, filled.get(), FcMatchPattern);
    FcDefaultSubstitute(filled.get());
    FcResult result = FcResultNoMatch;
    const Pattern found(FcFontMatch(nullptr, filled.get(), &result));
    const bool there = found && is_wanted(found.get(), asked.get()) && take_file(found.get(), file);
    return there ? 1 : GRX_ECHEC_ABSENT;
}

// A pipe would hold the application up.
INT find_path(const char* path, FontFile& file) {
    struct stat status {};
    if (stat(path, &status) != 0 || !S_ISREG(status.st_mode) || access(path, R_OK) != 0) return GRX_ECHEC_FICHIER;
    copy_text(file.path.data(), file.path.size(), path);
    return 1;
}

FcFontSet* outline_fonts() {
    const Pattern any(FcPatternCreate());
    const Objects wanted(FcObjectSetBuild(FC_FAMILY, static_cast<char*>(nullptr)));
    if (!any || !wanted) return nullptr;
    FcPatternAddBool(any.get(), FC_OUTLINE, FcTrue);
    return FcFontList(nullptr, any.get(), wanted.get());
}

// Sorts the families and leaves each once.
std::size_t in_order(std::span<const char*> families) {
    std::sort(families.begin(), families.end(),
        [](const char* a, const char* b) { return FcStrCmpIgnoreCase(fc(a), fc(b)) < 0; });
    const auto last = std::unique(families.begin(), families.end(),
        [](const char* a, const char* b) { return FcStrCmpIgnoreCase(fc(a), fc(b)) == 0; });
    return static_cast<std::size_t>(last - families.begin());
}

bool join_names(std::span<const char* const> families, Block<char>& names) {
    std::size_t size = 0;
    for (const char* family : families) size += std::strlen(family) + 1;
    names = Block<char>(size);
    if (!names) return false;
    char* out = names.data();
    for (const char* family : families) {
        const std::size_t length = std::strlen(family) + 1;
        std::memcpy(out, family, length);
        out += length;
    }
    return true;
}

} // namespace

INT find_font_file(const char* name, FontFile& file) {
    if (std::strchr(name, '/') != nullptr) return find_path(name, file);
    return find_family(name[0] != '\0' ? name : "sans", file);
}

bool list_families(Block<char>& names, std::size_t& count) {
    names.reset();
    count = 0;
    const FontSet fonts(outline_fonts());
    if (!fonts || fonts.get()->nfont == 0) return true;
    const auto found = static_cast<std::size_t>(fonts.get()->nfont);
    Block<const char*> families(found);
    if (!families) return false;
    std::size_t named = 0;
    for (std::size_t i = 0; i < found; ++i)
        if (const FcChar8* family = family_of(fonts.get()->fonts[i], 0)) families[named++] = chars(family);
    if (named == 0) return true;
    const std::size_t different = in_order(families.span().first(named));
    if (!join_names(families.span().first(different), names)) return false;
    count = different;
    return true;
}

} // namespace grx
