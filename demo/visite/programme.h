// atelier as a child process: its journal, what it says on stderr, its memory.
#ifndef VISITE_PROGRAMME_H
#define VISITE_PROGRAMME_H

#include <fcntl.h>
#include <signal.h>

#include <map>

#include "ecran.h"

namespace visite {

class Programme {
  public:
    // Files are left in place: the journal and what the program says.
    Programme(const std::string& programme, const std::filesystem::path& place, const std::string& plan)
        : journal_(place / "journal"), erreur_(place / "stderr") {
        std::filesystem::remove(journal_);
        enfant_ = fork();
        if (enfant_ != 0) return;
        setenv("ATELIER_JOURNAL", journal_.c_str(), 1);
        setenv("TMPDIR", place.c_str(), 1);
        setenv("PLTSPOOL_DIR", (place / "traceur").c_str(), 1);
        const int f = open(erreur_.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0644);
        if (f >= 0) dup2(f, STDERR_FILENO);
        const int rien = open("/dev/null", O_WRONLY);
        if (rien >= 0) dup2(rien, STDOUT_FILENO);
        execl(programme.c_str(), programme.c_str(), plan.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    ~Programme() { tue(); }
    Programme(const Programme&) = delete;
    Programme& operator=(const Programme&) = delete;

    bool vit() {
        if (enfant_ > 0 && waitpid(enfant_, &etat_, WNOHANG) == enfant_) enfant_ = -1;
        return enfant_ > 0;
    }
    // Of the ended process: its exit code, 128 and more after a signal.
    int code() const { return WIFEXITED(etat_) ? WEXITSTATUS(etat_) : 128 + WTERMSIG(etat_); }
    void tue() {
        if (enfant_ <= 0) return;
        kill(enfant_, SIGKILL);
        waitpid(enfant_, &etat_, 0);
        enfant_ = -1;
    }

    std::string plaintes() const {
        std::ifstream f(erreur_);
        return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    }

    // Kilobytes in memory.
    long memoire() const {
        std::ifstream f("/proc/" + std::to_string(enfant_) + "/status");
        for (std::string ligne; std::getline(f, ligne);)
            if (ligne.starts_with("VmRSS:")) return std::atol(ligne.c_str() + std::string_view("VmRSS:").size());
        return 0;
    }

    // --- the journal ---

    // How many lines there are: what follows is counted from there.
    std::size_t ici() {
        lit();
        return lignes_.size();
    }
    // Lines since a place that begin so.
    long nombre(std::size_t depuis, const std::string& debut) {
        lit();
        return std::count_if(lignes_.begin() + static_cast<std::ptrdiff_t>(depuis), lignes_.end(),
            [&](const std::string& l) { return l.starts_with(debut); });
    }
    std::string lignes(std::size_t depuis, const std::string& debut) {
        lit();
        std::string r;
        for (std::size_t i = depuis; i < lignes_.size(); ++i)
            if (lignes_[i].starts_with(debut)) r += (r.empty() ? "" : ", ") + lignes_[i];
        return r;
    }
    std::string etat(const std::string& nom) {
        lit();
        return etats_[nom];
    }

  private:
    void lit() {
        std::ifstream f(journal_, std::ios::binary);
        f.seekg(lu_);
        for (std::string ligne; std::getline(f, ligne) && !f.eof();) {
            lu_ += static_cast<std::streamoff>(ligne.size()) + 1;
            const std::size_t egal = ligne.find('=');
            if (egal != std::string::npos && ligne.find(' ') > egal)
                etats_[ligne.substr(0, egal)] = ligne.substr(egal + 1);
            lignes_.push_back(std::move(ligne));
        }
    }

    std::filesystem::path journal_, erreur_;
    pid_t enfant_ = -1;
    int etat_ = 0;
    std::streamoff lu_ = 0;
    std::vector<std::string> lignes_;
    std::map<std::string, std::string> etats_;
};

} // namespace visite

#endif
