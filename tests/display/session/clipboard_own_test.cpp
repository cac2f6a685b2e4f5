// The clipboard within one application: what its fields and its editor have, and what its calls put.
#include "tests/display/session/clipboard_kit.h"
#include "tests/display/dialogs/editor_kit.h"
#include "tests/support/controls.h"

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace {

using namespace grxtest;

// What the toolkit notes of a request to itself it never frees.
class OwnClipboard : public ClipboardOn<Editor> {
#ifdef __SANITIZE_ADDRESS__
  public:
    OwnClipboard() {
        __lsan_disable();
    }
    ~OwnClipboard() override {
        __lsan_enable();
    }
#endif

  protected:
    Widget field(const char* title) {
        GRX_BOUTON description = button_at(GRX_BOU_TEXTE, main_, {10, 10, 120, 30});
        set_title(description, title);
        EXPECT_EQ(grx_cree_bouton(&description), 0);
        Widget made = grx_recup_objet_bout(description.nobou);
        EXPECT_TRUE(wait_visible(made));
        pointer().click_in(made);
        drain();
        return made;
    }
};

TEST_F(OwnClipboard, WhatIsMarkedInAFieldIsThePrimarySelection) {
    Widget made = field("marked");
    XmTextSetSelection(made, 1, 4, XtLastTimestampProcessed(x11_disp));
    drain();
    EXPECT_EQ(get_text(GRX_CODAGE_LATIN1, GRX_SEL_PRIMAIRE).text, "ark");
    EXPECT_EQ(grx_recup_contenu_presse_papiers(GRX_SEL_PRIMAIRE), GRX_CONTENU_TEXTE);
    ASSERT_EQ(grx_affecte_suivi_presse_papiers(1), 1);
    ASSERT_EQ(put_text("call", GRX_CODAGE_UTF8, GRX_SEL_PRIMAIRE), 1);
    drain();
    EXPECT_EQ(field_text(made), "marked");
    XmTextSetSelection(made, 0, 2, XtLastTimestampProcessed(x11_disp));
    drain();
    EXPECT_EQ(events.count(GRX_EVT_PRESSE_PAPIERS), 1);
    EXPECT_EQ(get_text(GRX_CODAGE_LATIN1, GRX_SEL_PRIMAIRE).text, "ma");
}

TEST_F(OwnClipboard, AFieldsOwnKeysPasteWhatACallPut) {
    Widget made = field("");
    ASSERT_EQ(put_text("put"), 1);
    keyboard().key(XK_Insert, ShiftMask);
    EXPECT_TRUE(wait_for([&] { return field_text(made) == "put"; })) << field_text(made);
}

TEST_F(OwnClipboard, TheEditorPastesWhatACallPut) {
    edit("a.txt", "text");
    ASSERT_EQ(put_text("put "), 1);
    type("");
    choose("Edit", "Coller");
    drain();
    EXPECT_EQ(content(), "put text");
    ASSERT_EQ(grx_affecte_png_presse_papiers(0, reinterpret_cast<const unsigned char*>("\x89PNG\r\n\x1A\n"), 8), 1);
    choose("Edit", "Coller");
    EXPECT_EQ(content(), "put text");
}

TEST_F(OwnClipboard, WhatTheEditorCopiedIsGot) {
    edit("a.txt", "text");
    ASSERT_EQ(put_text("before"), 1);
    ASSERT_EQ(grx_affecte_suivi_presse_papiers(1), 1);
    select(3);
    choose("Edit", "Copier");
    drain();
    EXPECT_EQ(get_text().text, "tex");
    EXPECT_EQ(events.count(GRX_EVT_PRESSE_PAPIERS), 1);
    EXPECT_EQ(grx_recup_contenu_presse_papiers(0), GRX_CONTENU_TEXTE);
}

TEST_F(OwnClipboard, ALongTextOfTheEditorIsGotInParts) {
    const std::string text(700'000, 'x');
    edit("a.txt", text);
    type("");
    XmTextSetSelection(Editor::text(), 0, static_cast<XmTextPosition>(text.size()), XtLastTimestampProcessed(x11_disp));
    drain();
    choose("Edit", "Copier");
    drain();
    const TextGot got = get_text();
    EXPECT_EQ(got.result, 1);
    EXPECT_TRUE(got.text == text) << got.text.size();
}

} // namespace
