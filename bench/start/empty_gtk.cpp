// What another toolkit takes for a window with nothing in it.
#include <gtk/gtk.h>

#include <cstdio>
#include <ctime>

namespace {

void painted(GdkFrameClock *, gpointer)
{
    static bool isFirst = true;
    if (isFirst) {
        isFirst = false;
        timespec time{};
        clock_gettime(CLOCK_MONOTONIC, &time);
        std::printf("first-frame %lld\n", static_cast<long long>(time.tv_sec) * 1'000'000'000 + time.tv_nsec);
        std::fflush(stdout);
    }
}

void activate(GtkApplication *application, gpointer)
{
    GtkWidget *window = gtk_application_window_new(application);
    gtk_window_set_decorated(GTK_WINDOW(window), FALSE);
    gtk_window_set_default_size(GTK_WINDOW(window), 1440, 900);
    gtk_window_present(GTK_WINDOW(window));
    g_signal_connect(gdk_surface_get_frame_clock(gtk_native_get_surface(GTK_NATIVE(window))), "after-paint",
        G_CALLBACK(painted), nullptr);
}

} // namespace

int main(int argc, char *argv[])
{
    GtkApplication *application = gtk_application_new(nullptr, G_APPLICATION_NON_UNIQUE);
    g_signal_connect(application, "activate", G_CALLBACK(activate), nullptr);
    const int status = g_application_run(G_APPLICATION(application), argc, argv);
    g_object_unref(application);
    return status;
}
