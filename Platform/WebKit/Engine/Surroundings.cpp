// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/Surroundings.h"

#include "Platform/Foundation/NSDebug.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSRunLoop.h"

#include <X11/Xlib.h>
#include <algorithm>
#include <csetjmp>
#include <cstdlib>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

struct Variable {
    const char* name;
    const char* value; // null takes the variable away
};

// Nothing of the user's desktop takes part: no session bus, no accessibility bridge, no settings service, no
// modules of the toolkit, and no program that would have to be looked for.
constexpr Variable kEnvironment[] = {{"GDK_BACKEND", "x11"},
                                     {"GSETTINGS_BACKEND", "memory"},
                                     {"GIO_USE_VFS", "local"},
                                     {"GTK_A11Y", "none"},
                                     {"NO_AT_BRIDGE", "1"},
                                     {"WEBKIT_DISABLE_DMABUF_RENDERER", "1"},
                                     {"GTK_IM_MODULE", "gtk-im-context-simple"},
                                     {"DBUS_SESSION_BUS_ADDRESS", nullptr},
                                     {"GTK_MODULES", nullptr},
                                     {"GTK_THEME", nullptr},
                                     {"PATH", "/nonexistent"},
                                     {"WAYLAND_DISPLAY", nullptr},
                                     {"XAUTHORITY", nullptr}};

// The toolkit asks once where the user's folders are, and keeps the answers. All of them are in the runtime
// folder: nothing of the user's takes part, nothing stays behind, and a home that is not there, which the
// engine does not survive, does no harm. The program's own settings are still found where they were.
void moveUserFolders(const std::string& folder) {
    std::vector<std::pair<const char*, std::string>> before;
    for (const char* name : {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        if (const char* value = getenv(name)) before.emplace_back(name, value);
        unsetenv(name);
    }
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    setenv("HOME", folder.c_str(), 1);
    g_get_home_dir();
    g_get_user_cache_dir();
    g_get_user_config_dir();
    g_get_user_data_dir();
    unsetenv("HOME");
    for (const auto& [name, value] : before) setenv(name, value.c_str(), 1);
}

unsigned long rounds = 0;

// What the toolkit has to say is of no interest to users, but for the last words of a process.
GLogWriterOutput writeMessage(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer) {
    const bool isWanted = (level & G_LOG_LEVEL_ERROR) || (level <= G_LOG_LEVEL_WARNING && NSDebugEnabled());
    for (gsize i = 0; isWanted && i < count; ++i) {
        if (std::string_view(fields[i].key) == "MESSAGE")
            NSLog(NSString::fromUTF8(static_cast<const char*>(fields[i].value)));
    }
    return G_LOG_WRITER_HANDLED;
}

// The engine's libraries take long to be torn down, and are known to crash over it. Whoever was to be told
// has been told by then.
void leave(int status, void*) {
    fflush(nullptr);
    _exit(status);
}

jmp_buf beforeDisplay;
bool isConnecting = false;

int displayHasGone(Display*) {
    NSLog(u"The display server has gone.");
    if (isConnecting) longjmp(beforeDisplay, 1);
    return 0;
}

// Xlib would end the process. The page's process does end over it; what is known of the page then comes out
// as of any page whose process has ended.
void goOnWithoutDisplay(Display*, void*) {}

// The toolkit, too, would end the process, so its answer to a broken connection, which comes with its class
// of displays, is replaced before it connects.
bool connectToDisplay() {
    g_type_class_ref(GDK_TYPE_X11_DISPLAY);
    XSetIOErrorHandler(displayHasGone);
    if (setjmp(beforeDisplay) != 0) return false;
    isConnecting = true;
    const bool isConnected = gtk_init_check(nullptr, nullptr);
    isConnecting = false;
    if (isConnected) XSetIOErrorExitHandler(gdk_x11_get_default_xdisplay(), goOnWithoutDisplay, nullptr);
    return isConnected;
}

} // namespace

bool startToolkit(const WebEngineSurroundings& where) {
    for (const Variable& variable : kEnvironment) {
        if (variable.value) {
            setenv(variable.name, variable.value, 1);
        } else {
            unsetenv(variable.name);
        }
    }
    setenv("DISPLAY", where.display.c_str(), 1);
    if (!where.runtimeFolder.empty()) moveUserFolders(where.runtimeFolder);
    g_log_set_writer_func(writeMessage, nullptr, nullptr);
    gtk_disable_setlocale();
    on_exit(leave, nullptr);
    if (!connectToDisplay()) return false;
    NSRunLoop::currentRunLoop().setRunner(runToolkitUntil);
    return true;
}

void putLibrariesFirst(const std::string& folder) {
    const char* others = getenv("LD_LIBRARY_PATH");
    setenv("LD_LIBRARY_PATH", (others && *others ? folder + ":" + others : folder).c_str(), 1);
}

void runToolkitUntil(double referenceTime) {
    ++rounds;
    const double left = referenceTime - NSDate::now().timeIntervalSinceReferenceDate();
    if (left > 0) {
        waitForToolkit(left, [] { return false; });
    } else {
        g_main_context_iteration(nullptr, FALSE);
    }
}

unsigned long toolkitRounds() { return rounds; }

void waitForToolkit(double seconds, const std::function<bool()>& isDone) {
    bool isOver = false;
    auto end = [](gpointer data) -> gboolean {
        *static_cast<bool*>(data) = true;
        return G_SOURCE_CONTINUE;
    };
    const auto milliseconds = guint(std::min(seconds, 1e6) * 1000) + 1;
    const guint timer = g_timeout_add_full(G_PRIORITY_HIGH, milliseconds, end, &isOver, nullptr);
    while (!isOver && !isDone()) g_main_context_iteration(nullptr, TRUE);
    g_source_remove(timer);
}
