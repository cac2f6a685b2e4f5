// The library's dialogs for files and directories, with paths of the program.
#ifndef ATELIER_DIALOGUES_H
#define ATELIER_DIALOGUES_H

#include <filesystem>
#include <optional>
#include <span>

#include "host_t.h"

namespace atelier {

// What files are offered: the text that the user reads, in Latin-1, and the extension.
struct Filtre {
    const char* texte;
    const char* extension;
};

// Lets the user choose a file; operation: HOST_CATAL_...; depart: the file proposed. Nothing when the user gives up.
std::optional<std::filesystem::path> choisit_fichier(
    INT2 operation, const char* titre, std::span<const Filtre> filtres, const std::filesystem::path& depart);

std::optional<std::filesystem::path> choisit_repertoire(const char* titre, const std::filesystem::path& depart);

} // namespace atelier

#endif
