// Turns letters of menu texts into the key symbols that choose in an open menu.
#include "menus/mnemonics.h"

#include <Xm/Xm.h>

#include "toolkit/compound_string.h"
#include "xt_fen_t.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

KeySym lower_case(KeySym symbol) {
    KeySym lower = NoSymbol, upper = NoSymbol;
    XConvertCase(symbol, &lower, &upper);
    return lower;
}

} // namespace

KeySym mnemonic_key(char letter) {
    if (letter == GRX_MENU_SANS_MNEMO) return NoSymbol;
    const auto symbol = static_cast<KeySym>(static_cast<unsigned char>(letter));
    return XKeysymToKeycode(x11_disp, symbol) != 0 ? symbol : NoSymbol;
}

KeySym mnemonic_in(const char* label, KeySym wanted) {
    KeySym found = NoSymbol;
    for (const char* c = label; wanted != NoSymbol && *c != '\0'; ++c) {
        const auto symbol = static_cast<KeySym>(static_cast<unsigned char>(*c));
        if (symbol == wanted) return wanted;
        if (found == NoSymbol && lower_case(symbol) == lower_case(wanted)) found = symbol;
    }
    return found;
}

void set_mnemonic(Args& args, char letter) {
    if (const KeySym mnemonic = mnemonic_key(letter); mnemonic != NoSymbol)
        args.set(XmNmnemonic, mnemonic).set(XmNmnemonicCharSet, kFontTag); // or it is not underlined
}

} // namespace grx
