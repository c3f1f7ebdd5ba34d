// Test helper: another X client that grabs a key combination on the root window and holds it.
// Usage: hotkey_holder KEYSYM_HEX MODIFIER_MASK_HEX
// Prints "grabbed" or "refused", then keeps the grab until stdin closes (at most 20 s).

#include <poll.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    if (argc < 3)
        return 2;
    const auto keysym = xcb_keysym_t(std::strtoul(argv[1], nullptr, 16));
    const auto modifiers = uint16_t(std::strtoul(argv[2], nullptr, 16));
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection))
        return 3;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_key_symbols_t *symbols = xcb_key_symbols_alloc(connection);
    xcb_keycode_t *codes = xcb_key_symbols_get_keycode(symbols, keysym);
    if (!codes || !codes[0])
        return 4;
    xcb_generic_error_t *error = xcb_request_check(
        connection, xcb_grab_key_checked(connection, 0, root, modifiers, codes[0], XCB_GRAB_MODE_ASYNC,
                                         XCB_GRAB_MODE_ASYNC));
    std::puts(error ? "refused" : "grabbed");
    std::fflush(stdout);
    std::free(error);
    std::free(codes);

    pollfd input{STDIN_FILENO, POLLIN, 0};
    char buffer[64];
    while (poll(&input, 1, 20000) > 0 && read(STDIN_FILENO, buffer, sizeof buffer) > 0) {
    }
    xcb_key_symbols_free(symbols);
    xcb_disconnect(connection);
    return 0;
}
