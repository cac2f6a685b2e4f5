// What atelier does, line by line, in the file that ATELIER_JOURNAL names; nothing without it. Programs that play a user
// read there what a picture does not show.
#ifndef ATELIER_JOURNAL_H
#define ATELIER_JOURNAL_H

#include <fstream>
#include <map>
#include <string>

namespace atelier {

class Journal {
  public:
    Journal();
    bool tenu() const { return fichier_.is_open(); }
    void note(const std::string& ligne);
    // name=value, when the value is another than before.
    void etat(const std::string& nom, const std::string& valeur);

  private:
    std::ofstream fichier_;
    std::map<std::string, std::string> connus_;
};

} // namespace atelier

#endif
