// Containers that lay their children out once for a burst of changes. A form sorts and places all of its children each
// time one comes or goes, and any container asks the server about each while it looks for one to give the keyboard to:
// controls made one by one would cost the square, or the cube, of their number.
#include "toolkit/late_layout.h"

#include <X11/StringDefs.h>
#include <Xm/BulletinBP.h>
#include <Xm/FormP.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>

#include "toolkit/forget_toolkit.h"

namespace grx {

bool is_form(Widget container) {
    return XtIsSubclass(container, reinterpret_cast<WidgetClass>(&xmFormClassRec));
}

namespace {

// The containers on show whose children changed since they were laid out.
class PendingLayouts {
  public:
    bool has(Widget container) const { return std::find(begin(), end(), container) != end(); }
    void add(Widget container);
    void forget(Widget container) {
        count_ = static_cast<std::size_t>(std::remove(begin(), end(), container) - begin());
    }
    void lay_out(Widget container);
    void lay_out_all();
    void forget_all();

  private:
    static void on_timer(XtPointer, XtIntervalId*);
    Widget* begin() { return containers_.data(); }
    Widget* end() { return containers_.data() + count_; }
    const Widget* begin() const { return containers_.data(); }
    const Widget* end() const { return containers_.data() + count_; }

    std::array<Widget, 16> containers_{};
    std::size_t count_ = 0;
    XtIntervalId timer_ = 0;
};

PendingLayouts pending_layouts;

const CompositeClassPart& toolkit_methods(Widget container) {
    return is_form(container) ? xmFormClassRec.composite_class : xmBulletinBoardClassRec.composite_class;
}

std::span<Widget> children_of(Widget container) {
    CompositePart& composite = reinterpret_cast<CompositeRec*>(container)->composite;
    return {composite.children, composite.num_children};
}

// The toolkit ends the process when it realises a child without a size: the layout gives it one.
bool lacks_size(Widget child) {
    return child->core.width == 0 || child->core.height == 0;
}

XmFormAttachmentRec* sides_of(Widget child) {
    return reinterpret_cast<XmFormConstraintPtr>(child->core.constraints)->form.att;
}

void hang_one_way(XmFormAttachmentRec& before, const XmFormAttachmentRec& behind, Position at) {
    if (before.type != XmATTACH_NONE || behind.type != XmATTACH_NONE) return;
    before.type = XmATTACH_FORM;
    before.offset = at;
}

// Notes at once where a child stands when it is managed: the application may then change what it hangs on.
void hang_where_it_stands(Widget child) {
    const bool by_position = reinterpret_cast<XmFormRec*>(XtParent(child))->form.rubber_positioning != False;
    if (by_position || !XtIsRectObj(child)) return;
    XmFormAttachmentRec* const sides = sides_of(child);
    hang_one_way(sides[_XmFORM_LEFT], sides[_XmFORM_RIGHT], child->core.x);
    hang_one_way(sides[_XmFORM_TOP], sides[_XmFORM_BOTTOM], child->core.y);
}

void change_managed(Widget container) {
    const auto children = children_of(container);
    if (XtIsRealized(container) && std::none_of(children.begin(), children.end(), lacks_size)) {
        if (is_form(container)) std::for_each(children.begin(), children.end(), hang_where_it_stands);
        pending_layouts.add(container);
        return;
    }
    pending_layouts.forget(container);
    toolkit_methods(container).change_managed(container);
}

// Lays out before a child's request is weighed: it depends on where the others stand.
XtGeometryResult geometry_manager(Widget child, XtWidgetGeometry* request, XtWidgetGeometry* reply) {
    pending_layouts.lay_out(XtParent(child));
    return toolkit_methods(XtParent(child)).geometry_manager(child, request, reply);
}

XtGeometryResult query_geometry(Widget container, XtWidgetGeometry* intended, XtWidgetGeometry* wanted) {
    pending_layouts.lay_out(container);
    const auto superclass = XtClass(container)->core_class.superclass;
    return superclass->core_class.query_geometry(container, intended, wanted);
}

bool asks_for_place(const Arg& arg) {
    const std::array<const char*, 4> names{XtNx, XtNy, XtNwidth, XtNheight};
    return std::any_of(
        names.begin(), names.end(), [&arg](const char* name) { return std::strcmp(arg.name, name) == 0; });
}

// Reads places and sizes once more after a layout: the toolkit has given those before it.
void read_settled(Widget container, Widget w, ArgList args, Cardinal count) {
    if (!pending_layouts.has(container) || std::none_of(args, args + count, asks_for_place)) return;
    pending_layouts.lay_out(container);
    XtGetValues(w, args, count);
}

void get_values(Widget container, ArgList args, Cardinal* count) {
    read_settled(container, container, args, *count);
}

void get_values_of_child(Widget child, ArgList args, Cardinal* count) {
    if (XtIsManaged(child)) read_settled(XtParent(child), child, args, *count);
}

ConstraintClassExtensionRec constraint_extension{
    nullptr, NULLQUARK, XtConstraintExtensionVersion, sizeof(ConstraintClassExtensionRec), get_values_of_child};

void destroy(Widget container) {
    pending_layouts.forget(container);
}

bool hangs_on(Widget child, Widget neighbour) {
    constexpr int count = _XmFORM_BOTTOM + 1;
    XmFormAttachmentRec* const sides = sides_of(child);
    return XtIsRectObj(child)
           && std::any_of(sides, sides + count, [=](const auto& side) { return side.w == neighbour; });
}

// Takes a child out of a form. The form would sort the others for each child: while their layout is pending there is no
// order to keep. Children that hang on the dying one are taken off it by a layout first.
void delete_child_of_form(Widget child) {
    Widget const form = XtParent(child);
    const auto children = children_of(form);
    if (std::any_of(children.begin(), children.end(), [child](Widget other) { return hangs_on(other, child); })) {
        pending_layouts.forget(form);
        toolkit_methods(form).change_managed(form);
    }
    if (!pending_layouts.has(form)) return xmFormClassRec.composite_class.delete_child(child);
    reinterpret_cast<XmFormRec*>(form)->form.first_child = nullptr;
    xmBulletinBoardClassRec.composite_class.delete_child(child);
}

// A subclass that answers to the name, the resources and all other methods of its superclass.
template <class ClassRec>
ClassRec subclass_of(ClassRec& superclass) {
    ClassRec result = superclass;
    CoreClassPart& core = result.core_class;
    core.superclass = reinterpret_cast<WidgetClass>(&superclass);
    core.class_inited = False;
    core.class_initialize = nullptr;
    core.class_part_initialize = nullptr;
    core.initialize = nullptr;
    core.initialize_hook = nullptr;
    core.realize = XtInheritRealize;
    core.actions = nullptr;
    core.num_actions = 0;
    core.resources = nullptr;
    core.num_resources = 0;
    core.destroy = destroy;
    core.resize = XtInheritResize;
    core.expose = XtInheritExpose;
    core.set_values = nullptr;
    core.set_values_hook = nullptr;
    core.set_values_almost = XtInheritSetValuesAlmost;
    core.get_values_hook = get_values;
    core.accept_focus = XtInheritAcceptFocus;
    core.callback_private = nullptr;
    core.tm_table = XtInheritTranslations;
    core.query_geometry = query_geometry;
    core.display_accelerator = XtInheritDisplayAccelerator;
    core.extension = nullptr;
    result.composite_class = {geometry_manager, change_managed, XtInheritInsertChild, XtInheritDeleteChild, nullptr};
    ConstraintClassPart& constraint = result.constraint_class;
    constraint = {nullptr, 0, constraint.constraint_size, nullptr, nullptr, nullptr, &constraint_extension};
    result.manager_class = {
        const_cast<String>(XtInheritTranslations), nullptr, 0, nullptr, 0, XmInheritParentProcess, nullptr};
    result.bulletin_board_class = {False, XmInheritGeoMatrixCreate, XmInheritFocusMovedProc, nullptr};
    return result;
}

WidgetClass form_class() {
    static XmFormClassRec record = [] {
        XmFormClassRec result = subclass_of(xmFormClassRec);
        result.composite_class.delete_child = delete_child_of_form;
        return result;
    }();
    return reinterpret_cast<WidgetClass>(&record);
}

WidgetClass bulletin_board_class() {
    static XmBulletinBoardClassRec record = subclass_of(xmBulletinBoardClassRec);
    return reinterpret_cast<WidgetClass>(&record);
}

void PendingLayouts::add(Widget container) {
    if (has(container)) return;
    if (count_ == containers_.size()) lay_out_all();
    if (timer_ == 0) timer_ = XtAppAddTimeOut(XtWidgetToApplicationContext(container), 0, on_timer, nullptr);
    containers_[count_++] = container;
}

// An application that reads events by itself has its layout before the next one.
void PendingLayouts::on_timer(XtPointer, XtIntervalId*) {
    pending_layouts.timer_ = 0;
    lay_out_pending();
}

void PendingLayouts::lay_out(Widget container) {
    if (!has(container)) return;
    forget(container);
    if (!container->core.being_destroyed) toolkit_methods(container).change_managed(container);
}

void PendingLayouts::lay_out_all() {
    while (count_ > 0) lay_out(containers_[count_ - 1]);
    forget_all();
}

void PendingLayouts::forget_all() {
    if (timer_ != 0) XtRemoveTimeOut(timer_);
    timer_ = 0;
    count_ = 0;
    containers_.fill(nullptr);
}

} // namespace

void forget_layouts() {
    pending_layouts.forget_all();
}

void lay_out_pending() {
    pending_layouts.lay_out_all();
}

Widget create_form(Widget parent, const char* name, Args& args) {
    return XtCreateWidget(const_cast<char*>(name), form_class(), parent, args.list(), args.count());
}

Widget create_bulletin_board(Widget parent, const char* name, Args& args) {
    return XtCreateWidget(const_cast<char*>(name), bulletin_board_class(), parent, args.list(), args.count());
}

} // namespace grx
