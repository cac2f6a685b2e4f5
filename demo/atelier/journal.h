// What atelier does, line by line, in the file that ATELIER_JOURNAL names; nothing without it. Programs that play a user
// read there what a picture does not show.
#ifndef ATELIER_JOURNAL_H
#define ATELIER_JOURNAL_H

#include <fstream>
#include <functional>
#include <map>
#include <string>

#include "xt_ent_t.h"

namespace atelier {

class Journal {
  public:
    Journal();

    void action(INT fonction);
    // An event as it comes: controls, entries of lists, and keys with what they are typed in.
    void note(const GRX_EVENEMENT& e, bool dans_une_annexe, bool dans_un_champ);
    // name=value, when the value is another than before.
    void etat(const std::string& nom, const std::string& valeur);
    // Calls this many times a second, as long as the window is there: the user may type where typing brings no event.
    void suit(INT nofen, std::function<void()> regarde);

  private:
    bool tenu() const { return fichier_.is_open(); }
    void ecrit(const std::string& ligne);
    void regarde();

    std::ofstream fichier_;
    std::map<std::string, std::string> connus_;
    INT nofen_ = -1;
    std::function<void()> regarde_;
};

} // namespace atelier

#endif
