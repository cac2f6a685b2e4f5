// Controls just made, and what the toolkit was asked for them.
#pragma once

#include "tests/support/control_kit.h"
#include "tests/support/toolkit_calls.h"

#include <set>

namespace grxtest {

// What the library's own handler of a control listens to; 0 when there is none or its data is not the record.
inline EventMask listened_mask(const ToolkitCalls& asked, INT nobou) {
    for (const HandlerAddition& handler : asked.handlers)
        if (handler.widget == control(nobou) && handler.function == &grx_gere_evenements_bouton)
            return handler.data == &button_record(nobou) ? handler.mask : 0;
    return 0;
}

// Names of the callbacks that somebody listens to.
inline std::set<std::string> callbacks_of(Widget widget) {
    std::set<std::string> result;
    for (const char* name : {XmNactivateCallback, XmNarmCallback, XmNdisarmCallback, XmNvalueChangedCallback,
             XmNdragCallback, XmNbrowseSelectionCallback, XmNdefaultActionCallback, XmNsingleSelectionCallback,
             XmNmultipleSelectionCallback, XmNextendedSelectionCallback, XmNlosingFocusCallback, XmNfocusCallback,
             XmNmodifyVerifyCallback, XmNmotionVerifyCallback, XmNexposeCallback, XmNresizeCallback, XmNinputCallback,
             XmNhelpCallback})
        if (XtHasCallbacks(widget, name) == XtCallbackHasSome) result.insert(name);
    return result;
}

class ControlCreation : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        window = shown();
        asked.forget();
    }

    GRX_BOUTON a(INT type, INT bits = 0, const char* title = "Text") { return control_of(type, bits, window, title); }
    Widget make_widget(const GRX_BOUTON& description) { return control(placed(description)); }

    ToolkitCalls asked;
    INT window = -1;
};

struct ControlType {
    ControlKind kind;
    WidgetClass widget_class;
    std::set<std::string> callbacks;
};

inline std::vector<ControlType> control_types() {
    const std::set<std::string> none, activate{XmNactivateCallback}, changed{XmNvalueChangedCallback};
    const std::set<std::string> text{XmNactivateCallback, XmNlosingFocusCallback};
    const std::set<std::string> scale{XmNvalueChangedCallback, XmNdragCallback};
    const std::set<std::string> list{XmNbrowseSelectionCallback, XmNdefaultActionCallback};
    return {{{"drawn", 1, 0}, xmDrawnButtonWidgetClass, activate},
        {{"flat", 1, 0x1000}, xmDrawnButtonWidgetClass, activate},
        {{"toggle", 2, 0}, xmToggleButtonWidgetClass, changed},
        {{"push", 4, 0x2000}, xmPushButtonWidgetClass, activate},
        {{"drawn push", 4, 0}, xmDrawnButtonWidgetClass, activate},
        {{"arrow", 8, 0}, xmArrowButtonWidgetClass, activate}, {{"label", 16, 0}, xmLabelWidgetClass, none},
        {{"field", 32, 0}, xmTextFieldWidgetClass, text}, {{"scrolled text", 32, 0x100}, xmTextWidgetClass, text},
        {{"scale", 64, 0}, xmScaleWidgetClass, scale}, {{"list", 128, 0}, xmListWidgetClass, list},
        {{"scrolled list", 128, 0x100}, xmListWidgetClass, list},
        {{"simple", 512, 0}, xmPushButtonWidgetClass, activate}, {{"separator", 768, 0}, xmSeparatorWidgetClass, none},
        {{"area", 1024, 0}, xmDrawingAreaWidgetClass, none}, {{"colour", 4096, 0}, xmDrawnButtonWidgetClass, activate}};
}

inline GRX_BOUTON scale(INT window, INT bits, INT minimum, INT maximum, INT value) {
    GRX_BOUTON description = control_of(GRX_BOU_ECHELLE, bits, window, "Echelle");
    description.tabi[GRX_BOU_TABI_MINI] = minimum;
    description.tabi[GRX_BOU_TABI_MAXI] = maximum;
    description.tabi[GRX_BOU_TABI_INITIAL] = value;
    return description;
}

} // namespace grxtest
