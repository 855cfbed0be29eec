#include "StatusBar/NotifierItem.hpp"

#include <QtEndian>
#include <array>
#include <utility>
#include <vector>

namespace vireline::xdg {
namespace {

constexpr const char* itemInterfaceXML = R"xml(<node><interface name="org.kde.StatusNotifierItem">
<property name="Category" type="s" access="read"/>
<property name="Id" type="s" access="read"/>
<property name="Title" type="s" access="read"/>
<property name="Status" type="s" access="read"/>
<property name="WindowId" type="i" access="read"/>
<property name="IconThemePath" type="s" access="read"/>
<property name="Menu" type="o" access="read"/>
<property name="ItemIsMenu" type="b" access="read"/>
<property name="IconName" type="s" access="read"/>
<property name="IconPixmap" type="a(iiay)" access="read"/>
<property name="IconAccessibleDesc" type="s" access="read"/>
<property name="OverlayIconName" type="s" access="read"/>
<property name="AttentionIconName" type="s" access="read"/>
<property name="AttentionMovieName" type="s" access="read"/>
<property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
<method name="ContextMenu"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
<method name="Activate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
<method name="SecondaryActivate"><arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/></method>
<method name="Scroll"><arg name="delta" type="i" direction="in"/><arg name="orientation" type="s" direction="in"/></method>
<signal name="NewIcon"/>
<signal name="NewStatus"><arg name="status" type="s"/></signal>
</interface></node>)xml";

constexpr const char* itemPath = "/StatusNotifierItem";
/// Sizes for panels at scales 1 and 2.
constexpr std::array pictureSides{16, 22, 24, 32, 44, 48, 64};

/// Pixels in the protocol's format: ARGB, big-endian.
GVariant* pixmap(const QImage& picture) {
    const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
    std::vector<quint32> argb;
    argb.reserve(static_cast<std::size_t>(pixels.width()) *
                 static_cast<std::size_t>(pixels.height()));
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x)
            argb.push_back(qToBigEndian(quint32{pixels.pixel(x, y)}));
    }
    return g_variant_new("(ii@ay)", pixels.width(), pixels.height(),
                         g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, argb.data(),
                                                   argb.size() * sizeof(quint32), 1));
}

}

NotifierItem::NotifierItem(GDBusConnection* bus, Content content, Callbacks callbacks)
    : content_(std::move(content))
    , callbacks_(std::move(callbacks))
    , menu_(bus, callbacks_.menu)
    , object_(bus, itemPath, itemInterfaceXML,
              {.call = [this](const std::string& method, GVariant* /*parameters*/,
                              GDBusMethodInvocation* invocation) { call(method, invocation); },
               .get = [this](const std::string& property) { return get(property); }}) {}

void NotifierItem::pictureChanged() const {
    object_.emit("NewIcon", nullptr);
}

void NotifierItem::call(const std::string& method, GDBusMethodInvocation* invocation) const {
    g_dbus_method_invocation_return_value(invocation, nullptr);
    if (method == "ContextMenu" || method == "Activate")
        callbacks_.popUpMenu();
}

GVariant* NotifierItem::get(const std::string& property) const {
    const std::string& name = content_.symbol.description;
    if (property == "Category")
        return g_variant_new_string("ApplicationStatus");
    if (property == "Id")
        return g_variant_new_string("vireline");
    if (property == "Title" || property == "IconAccessibleDesc")
        return g_variant_new_string(name.c_str());
    if (property == "Status")
        return g_variant_new_string("Active");
    if (property == "WindowId")
        return g_variant_new_int32(0);
    if (property == "Menu")
        return g_variant_new_object_path(NotifierMenu::path);
    if (property == "ItemIsMenu")
        return g_variant_new_boolean(TRUE);
    if (property == "IconName")
        return g_variant_new_string(content_.iconName.c_str());
    if (property == "IconPixmap")
        return pixmaps();
    if (property == "ToolTip")
        return g_variant_new("(sa(iiay)ss)", "", nullptr, name.c_str(), "");
    // Names of icons that the item does not have.
    return g_variant_new_string("");
}

GVariant* NotifierItem::pixmaps() const {
    GVariantBuilder list;
    g_variant_builder_init(&list, G_VARIANT_TYPE("a(iiay)"));
    for (const int side : pictureSides)
        g_variant_builder_add_value(&list, pixmap(callbacks_.picture(side)));
    return g_variant_builder_end(&list);
}

}
