// Who the application is: name and class, before and after the start.
#include "tests/display/windows/manners_kit.h"
#include "tests/support/stdout_capture.h"

#include "system/shut_down.h"

#include <climits>

namespace {

using namespace grxtest;

std::string name() {
    char text[100] = "?";
    grx_recup_nom_application(text, sizeof text);
    return text;
}

std::string application() {
    char text[100] = "?";
    grx_recup_classe_application(text, sizeof text);
    return text;
}

class IdentityOn24 : public XTest {};

TEST_F(IdentityOn24, WithoutACallTheNameIsTheOldOne) {
    EXPECT_EQ(name(), "HB");
    EXPECT_EQ(application(), "");
    ASSERT_EQ(Arguments({"/opt/bin/plan"}).take(), 1);
    EXPECT_EQ(name(), "HB") << "arguments alone say nothing of it";
}

TEST_F(IdentityOn24, NameAndClassComeFromWhoSaysThem) {
    GRX_IDENTITE who = identity();
    ASSERT_EQ(grx_affecte_identite(&who), 1);
    EXPECT_EQ(name(), "HB");
    EXPECT_EQ(application(), "HB");
    ASSERT_EQ(Arguments({"/opt/bin/plan"}).take(), 1);
    EXPECT_EQ(name(), "plan");
    EXPECT_EQ(application(), "Plan");
    who.nom = "atelier";
    ASSERT_EQ(grx_affecte_identite(&who), 1);
    EXPECT_EQ(name(), "atelier");
    EXPECT_EQ(application(), "Atelier");
    who.classe = "ourCad";
    ASSERT_EQ(grx_affecte_identite(&who), 1);
    EXPECT_EQ(application(), "ourCad") << "as it was written";
    ASSERT_EQ(Arguments({"/opt/bin/plan", "-name", "second"}).take(), 1);
    EXPECT_EQ(name(), "second");
    EXPECT_EQ(application(), "ourCad");
}

TEST_F(IdentityOn24, TheTextsAreCopied) {
    char text[] = "plan";
    GRX_IDENTITE who = identity(text, text);
    ASSERT_EQ(grx_affecte_identite(&who), 1);
    text[0] = 'x';
    EXPECT_EQ(name(), "plan");
    char small[3] = "";
    EXPECT_EQ(grx_recup_nom_application(small, sizeof small), 4);
    EXPECT_STREQ(small, "pl");
    EXPECT_EQ(grx_recup_nom_application(nullptr, 10), 4);
    EXPECT_EQ(grx_recup_classe_application(small, 0), 4);
}

TEST_F(IdentityOn24, WhatIsRefused) {
    const std::string longest(79, 'n'), too_long(80, 'n');
    EXPECT_EQ(grx_init_identite(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affecte_identite(nullptr), GRX_ECHEC_PARAMETRE);
    GRX_IDENTITE who = identity(too_long.c_str());
    EXPECT_EQ(grx_affecte_identite(&who), GRX_ECHEC_PARAMETRE);
    who = identity(nullptr, too_long.c_str());
    EXPECT_EQ(grx_affecte_identite(&who), GRX_ECHEC_PARAMETRE);
    for (INT size : {0, -1, INT_MIN, 8, static_cast<INT>(sizeof who) - 1}) {
        who = identity("x");
        who.taille = size;
        EXPECT_EQ(grx_affecte_identite(&who), GRX_ECHEC_PARAMETRE) << size;
    }
    EXPECT_EQ(name(), "HB") << "nothing has changed";
    EXPECT_EQ(application(), "");
    who = identity(longest.c_str(), longest.c_str());
    EXPECT_EQ(grx_affecte_identite(&who), 1);
    EXPECT_EQ(name(), longest);
    EXPECT_EQ(application(), longest);
}

TEST_F(IdentityOn24, AShutDownForgetsIt) {
    const GRX_IDENTITE who = identity("plan", "Cad");
    ASSERT_EQ(grx_affecte_identite(&who), 1);
    grx::run_shut_down();
    EXPECT_EQ(name(), "HB");
    EXPECT_EQ(application(), "");
    ASSERT_TRUE(start_up());
    EXPECT_FALSE(property_of(test_display(), shell_window(make(GRX_FEN_ALPHA)), "_NET_WM_PID").there);
}

TEST_F(IdentityOn24, OnceStartedItIsTooLate) {
    ASSERT_TRUE(start_up());
    const GRX_IDENTITE who = identity("plan", "Plan");
    StdoutCapture capture;
    EXPECT_EQ(grx_affecte_identite(&who), GRX_ECHEC_OCCUPE);
    EXPECT_EQ(capture.text(), "");
    EXPECT_EQ(name(), "HB");
    const INT n = make(GRX_FEN_ALPHA);
    EXPECT_EQ(property_of(test_display(), shell_window(n), "WM_CLASS").bytes, std::string("HB\0TopLevelShell\0", 17));
    EXPECT_FALSE(property_of(test_display(), shell_window(n), "_NET_WM_PID").there);
}

} // namespace
