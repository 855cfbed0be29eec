/// A GTK program with plain windows, for tests of what a real toolkit's windows say and do:
///
///     DesktopGtkApp [--announce PROPERTIES] ID TITLE...
///
/// Opens a window for each title, of class ID. On SIGUSR1, its first window asks for attention.
/// With --announce, it also announces the properties, a dictionary in GVariant's text format, for
/// the tile of the app with this identifier.
///
/// GTK is loaded at run time: the tests' window managers need its library anyway, but not its
/// headers, which are a large package.
#include <dlfcn.h>
#include <gio/gio.h>
#include <glib-unix.h>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct Window;

class Gtk {
public:
    Gtk() : library_(dlopen("libgtk-3.so.0", RTLD_NOW)) {
        if (library_ == nullptr)
            throw std::runtime_error{"there is no GTK"};
    }

    /// Calls a function of GTK's that returns nothing.
    template <class... Arguments>
    void call(const char* name, Arguments... arguments) const {
        address<void (*)(Arguments...)>(name)(arguments...);
    }

    [[nodiscard]] Window* makeWindow() const {
        constexpr int topLevel = 0;
        return address<Window* (*)(int)>("gtk_window_new")(topLevel);
    }

private:
    template <class Function>
    [[nodiscard]] Function address(const char* name) const {
        void* const found = dlsym(library_, name);
        if (found == nullptr)
            throw std::runtime_error{std::string{"GTK has no "} + name};
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): as dlsym requires
        return reinterpret_cast<Function>(found);
    }

    void* library_;
};

struct App {
    Gtk gtk{};
    std::vector<Window*> windows{};
};

void announce(const std::string& id, const std::string& properties) {
    GDBusConnection* const bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (bus == nullptr)
        throw std::runtime_error{"there is no session bus"};
    GVariant* const dictionary =
        g_variant_parse(G_VARIANT_TYPE_VARDICT, properties.c_str(), nullptr, nullptr, nullptr);
    const std::string address = "application://" + id + ".desktop";
    g_dbus_connection_emit_signal(bus, nullptr, "/com/canonical/unity/launcherentry/1",
                                  "com.canonical.Unity.LauncherEntry", "Update",
                                  g_variant_new("(s@a{sv})", address.c_str(), dictionary), nullptr);
}

gboolean askForAttention(gpointer data) {
    const auto& app = *static_cast<const App*>(data);
    app.gtk.call("gtk_window_set_urgency_hint", app.windows.front(), TRUE);
    return G_SOURCE_CONTINUE;
}

void run(std::vector<std::string> arguments) {
    std::string properties;
    if (arguments.size() > 1 && arguments.front() == "--announce") {
        properties = arguments[1];
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.size() < 2)
        throw std::invalid_argument{"an identifier and titles are needed"};
    const std::string id = arguments.front();

    App app;
    g_set_prgname(id.c_str());
    app.gtk.call<int*, char***>("gtk_init", nullptr, nullptr);
    app.gtk.call("gdk_set_program_class", id.c_str());
    g_unix_signal_add(SIGUSR1, askForAttention, &app);
    constexpr int width = 320;
    constexpr int height = 200;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        Window* const window = app.windows.emplace_back(app.gtk.makeWindow());
        app.gtk.call("gtk_window_set_title", window, arguments[i].c_str());
        app.gtk.call("gtk_window_set_default_size", window, width, height);
        app.gtk.call("gtk_widget_show", window);
    }
    if (!properties.empty())
        announce(id, properties);
    app.gtk.call<>("gtk_main");
}

}

int main(int count, char** arguments) {
    try {
        run({arguments + 1, arguments + count});
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
