// The variables of the library in this program, found in its symbol table, so that a new one is noticed: whether they hold
// what they held at a moment before.
#pragma once

#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace grxtest {

inline const std::string project_root = std::string(GRX_TEST_DATA) + "/../../";

inline std::string plain_name(const char* name) {
    int status = 0;
    char* const text = abi::__cxa_demangle(name, nullptr, nullptr, &status);
    std::string result = status == 0 ? text : name;
    std::free(text);
    return result;
}

// Their files exist once in x11/, and not among the tests.
inline std::set<std::string> library_files() {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(project_root + "x11"))
        if (entry.path().extension() == ".cpp") names.insert(entry.path().filename());
    for (const auto& entry : std::filesystem::recursive_directory_iterator(project_root + "tests"))
        if (entry.path().extension() == ".cpp") names.erase(entry.path().filename());
    return names;
}

inline std::set<std::string> contract_names() {
    std::ifstream in(project_root + "cmake/symbols/GRX_1.0.txt");
    return {std::istream_iterator<std::string>(in), {}};
}

struct Variable {
    std::string name;
    const char* address;
    std::size_t size;
};

inline int first_object(dl_phdr_info* info, std::size_t, void* base) {
    *static_cast<ElfW(Addr)*>(base) = info->dlpi_addr;
    return 1; // the program itself comes first
}

// Looked at where it stands: with sanitizers it is far too large to be copied.
class Program {
  public:
    Program() {
        const int file = open("/proc/self/exe", O_RDONLY | O_CLOEXEC);
        struct stat status {};
        fstat(file, &status);
        size_ = static_cast<std::size_t>(status.st_size);
        void* const place = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, file, 0);
        close(file);
        if (place == MAP_FAILED) std::abort();
        bytes_ = static_cast<const char*>(place);
        dl_iterate_phdr(first_object, &base_);
        for (const Elf64_Shdr& section : sections()) writable_.push_back(is_writable(section));
    }
    ~Program() { munmap(const_cast<char*>(bytes_), size_); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    std::vector<Variable> variables_of_the_library() const {
        std::vector<Variable> result;
        const auto files = library_files();
        const auto contract = contract_names();
        bool in_library = false;
        for (const Elf64_Sym& symbol : symbols()) {
            const char* const name = text(symbol.st_name);
            const auto type = ELF64_ST_TYPE(symbol.st_info);
            if (type == STT_FILE) in_library = files.contains(name);
            if (type != STT_OBJECT || !writable(symbol)) continue;
            const bool local = ELF64_ST_BIND(symbol.st_info) == STB_LOCAL;
            const bool global = contract.contains(name) || std::string_view(name).starts_with("_ZN3grx");
            if (local ? in_library : global)
                result.push_back(
                    {plain_name(name), reinterpret_cast<const char*>(base_ + symbol.st_value), symbol.st_size});
        }
        return result;
    }

  private:
    template <class T>
    std::span<const T> table(Elf64_Off offset, std::size_t size) const {
        return {reinterpret_cast<const T*>(bytes_ + offset), size / sizeof(T)};
    }
    const Elf64_Ehdr& header() const { return *reinterpret_cast<const Elf64_Ehdr*>(bytes_); }
    std::span<const Elf64_Shdr> sections() const {
        return table<Elf64_Shdr>(header().e_shoff, header().e_shnum * sizeof(Elf64_Shdr));
    }
    const Elf64_Shdr& symbol_section() const {
        return *std::ranges::find_if(sections(), [](const Elf64_Shdr& s) { return s.sh_type == SHT_SYMTAB; });
    }
    std::span<const Elf64_Sym> symbols() const {
        return table<Elf64_Sym>(symbol_section().sh_offset, symbol_section().sh_size);
    }
    const char* text(Elf64_Word place) const { return bytes_ + sections()[symbol_section().sh_link].sh_offset + place; }
    bool is_writable(const Elf64_Shdr& section) const {
        const std::string_view name = bytes_ + sections()[header().e_shstrndx].sh_offset + section.sh_name;
        return name == ".data" || name == ".bss";
    }
    bool writable(const Elf64_Sym& symbol) const {
        return symbol.st_shndx < writable_.size() && writable_[symbol.st_shndx];
    }

    const char* bytes_ = nullptr;
    std::size_t size_ = 0;
    std::vector<bool> writable_; // for each section
    ElfW(Addr) base_ = 0;
};

// What may stay, and why.
inline const std::set<std::string> staying{
    "grx::(anonymous namespace)::form_class()::record",           // classes of the toolkit, made once in a process
    "grx::(anonymous namespace)::bulletin_board_class()::record", //
    "guard variable for grx::(anonymous namespace)::form_class()::record",
    "guard variable for grx::(anonymous namespace)::bulletin_board_class()::record",
    "grx::(anonymous namespace)::line_feed_mapping()::mapping", // the toolkit loses its parts
    "guard variable for grx::(anonymous namespace)::line_feed_mapping()::mapping",
    "grx::(anonymous namespace)::plain_text_mappings()::mappings", //
    "guard variable for grx::(anonymous namespace)::plain_text_mappings()::mappings",
    "grx::(anonymous namespace)::shuffles()::can", // of the processor
    "guard variable for grx::(anonymous namespace)::shuffles()::can",
    "grx::editor::(anonymous namespace)::warning_image()::image", // the toolkit knows it by its name for good
    "grx::(anonymous namespace)::noted",                          // the list of those to be asked, beyond its count
    "grx::(anonymous namespace)::left",                           // what the toolkit keeps of displays that were closed
    "grx::(anonymous namespace)::count",                          //
    "(anonymous namespace)::tab_ind_page",                        // each its own place
    "(anonymous namespace)::short_edges",                         // rows of the triangle filled last
    "(anonymous namespace)::long_edge",
    "(anonymous namespace)::ending", // of this very moment
    "grx::trace_wanted",             // the trace goes on: it tells of the process
    "grx::(anonymous namespace)::environment_read",
    "grx::(anonymous namespace)::last_line",
};

class LibraryState {
  public:
    LibraryState() : variables_(Program().variables_of_the_library()) {
        for (const Variable& v : variables_) before_.emplace_back(v.address, v.size);
    }

    std::size_t count() const { return variables_.size(); }

    // The names of those that hold something else by now.
    std::vector<std::string> changed() const {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < variables_.size(); ++i) {
            const Variable& v = variables_[i];
            if (before_[i] != std::string_view(v.address, v.size) && !staying.contains(v.name)) names.push_back(v.name);
        }
        return names;
    }

  private:
    std::vector<Variable> variables_;
    std::vector<std::string> before_;
};

} // namespace grxtest
