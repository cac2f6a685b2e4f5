// Growing texts and file lists of the default host. Their memory comes from mallocC and reallocC: STRING.str has
// STRING.taille bytes, SFICHIER.fics has nb_fics elements, and the application frees them with these sizes.
#include "host_prive.h"

#include <algorithm>
#include <limits>

using namespace grx_host;

namespace {

// Old block or none, to size bytes.
char* grow(char* old, UNSIGNED_INT old_size, UNSIGNED_INT size) {
    return old ? reallocC(old, old_size, size) : mallocC(size);
}

constexpr UNSIGNED_INT list_bytes(INT count) {
    return static_cast<UNSIGNED_INT>(static_cast<std::size_t>(count) * sizeof(STRING));
}

} // namespace

HOST_DEFAULT INT string_realloc(STRING* s, char* texte) {
    if (!s) return no_memory;
    const auto text = view(texte);
    if (text.size() >= static_cast<std::size_t>(std::numeric_limits<INT>::max())) return no_memory;
    const auto size = static_cast<UNSIGNED_INT>(text.size()) + 1;
    // A text that is s's own, or a part of it, would move away under the copy: the new block comes first.
    char* const copy = mallocC(size);
    if (!copy) return no_memory;
    s->lg = store(copy, size, text);
    if (s->str) freeC(s->str, static_cast<UNSIGNED_INT>(s->taille));
    s->str = copy;
    s->taille = static_cast<INT>(size);
    return done;
}

HOST_DEFAULT INT ajout_sfichier(SFICHIER* sfic, char* nom) {
    if (!sfic) return no_memory;
    const INT count = std::max<INT>(sfic->nb_fics, 0);
    if (count == std::numeric_limits<INT2>::max()) return no_memory;
    STRING added{};
    if (string_realloc(&added, nom) != done) return no_memory;
    char* const grown = grow(reinterpret_cast<char*>(sfic->fics), list_bytes(count), list_bytes(count + 1));
    if (!grown) {
        freeC(added.str, static_cast<UNSIGNED_INT>(added.taille));
        return no_memory;
    }
    sfic->fics = reinterpret_cast<STRING*>(grown);
    sfic->fics[count] = added;
    sfic->nb_fics = static_cast<INT2>(count + 1);
    return done;
}
