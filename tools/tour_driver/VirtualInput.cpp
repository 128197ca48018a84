// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "tour_driver/VirtualInput.h"

#include <wayland-client.h>
#include <xkbcommon/xkbcommon.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace tour {

namespace {

// The requests of virtual-keyboard-unstable-v1 and wlr-virtual-pointer-unstable-v1, as far down their lists
// as they are used: the number of a request is its place.

/// For arguments that are no objects.
std::array<const wl_interface*, 5> noObjects{};

constexpr std::uint32_t Keymap = 0;
constexpr std::uint32_t KeyChange = 1;
constexpr std::uint32_t Modifiers = 2;

const std::array<wl_message, 3> KeyboardRequests{
    {{"keymap", "uhu", noObjects.data()},
     {"key", "uuu", noObjects.data()},
     {"modifiers", "uuuu", noObjects.data()}}};
const wl_interface Keyboard{"zwp_virtual_keyboard_v1", 1, KeyboardRequests.size(),
                            KeyboardRequests.data(),   0, nullptr};

constexpr std::uint32_t MotionAbsolute = 1;
constexpr std::uint32_t Button = 2;
constexpr std::uint32_t Frame = 4;

const std::array<wl_message, 5> PointerRequests{
    {{"motion", "uff", noObjects.data()},
     {"motion_absolute", "uuuuu", noObjects.data()},
     {"button", "uuu", noObjects.data()},
     {"axis", "uuf", noObjects.data()},
     {"frame", "", noObjects.data()}}};
const wl_interface Pointer{"zwlr_virtual_pointer_v1", 1, PointerRequests.size(),
                           PointerRequests.data(),    0, nullptr};

/// The first request of a manager makes a device for a seat.
constexpr std::uint32_t Create = 0;

std::array<const wl_interface*, 2> seatAndKeyboard{&wl_seat_interface, &Keyboard};
std::array<const wl_interface*, 2> seatAndPointer{&wl_seat_interface, &Pointer};
const wl_message CreateKeyboard{"create_virtual_keyboard", "on", seatAndKeyboard.data()};
const wl_message CreatePointer{"create_virtual_pointer", "?on", seatAndPointer.data()};
const wl_interface KeyboardManager{"zwp_virtual_keyboard_manager_v1", 1, 1, &CreateKeyboard, 0, nullptr};
const wl_interface PointerManager{"zwlr_virtual_pointer_manager_v1", 1, 1, &CreatePointer, 0, nullptr};

template <auto Free>
struct Release {
    void operator()(auto* object) const { Free(object); }
};

using Proxy = std::unique_ptr<wl_proxy, Release<wl_proxy_destroy>>;

std::uint32_t now() {
    using namespace std::chrono;
    return static_cast<std::uint32_t>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

} // namespace

struct VirtualInput::Connection {
    std::unique_ptr<wl_display, Release<wl_display_disconnect>> display{wl_display_connect(nullptr)};
    Proxy registry;
    Proxy seat;
    Proxy keyboardManager;
    Proxy pointerManager;
    Proxy keyboard;
    Proxy pointer;
    std::unique_ptr<xkb_context, Release<xkb_context_unref>> context{xkb_context_new(XKB_CONTEXT_NO_FLAGS)};
    std::unique_ptr<xkb_keymap, Release<xkb_keymap_unref>> keymap;
    std::unique_ptr<xkb_state, Release<xkb_state_unref>> state;

    /// The registry tells of everything that the compositor offers.
    static void announced(
        void* data, wl_registry* registry, std::uint32_t name, const char* interface,
        std::uint32_t /*version*/) {
        auto& connection = *static_cast<Connection*>(data);
        const std::array<std::pair<const wl_interface*, Proxy*>, 3> wanted{
            {{&wl_seat_interface, &connection.seat},
             {&KeyboardManager, &connection.keyboardManager},
             {&PointerManager, &connection.pointerManager}}};
        for (const auto& [type, proxy] : wanted) {
            if (std::string_view(interface) == type->name) {
                proxy->reset(static_cast<wl_proxy*>(wl_registry_bind(registry, name, type, 1)));
            }
        }
    }

    static void withdrawn(void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*name*/) {}

    [[nodiscard]] Proxy create(const Proxy& manager, const wl_interface& type) const {
        return Proxy(wl_proxy_marshal_flags(
            manager.get(), Create, &type, 1, 0, seat.get(), static_cast<void*>(nullptr)));
    }

    template <typename... Arguments>
    void send(const Proxy& device, std::uint32_t request, Arguments... arguments) {
        wl_proxy_marshal_flags(device.get(), request, nullptr, 1, 0, arguments...);
    }

    void wait() { wl_display_roundtrip(display.get()); }

    void findDevices() {
        static constexpr wl_registry_listener Listener{&announced, &withdrawn};
        wl_registry* list = wl_display_get_registry(display.get());
        registry.reset(reinterpret_cast<wl_proxy*>(list));
        wl_registry_add_listener(list, &Listener, this);
        wait();
        if (seat && keyboardManager && pointerManager) {
            keyboard = create(keyboardManager, Keyboard);
            pointer = create(pointerManager, Pointer);
        }
    }

    void giveKeymap() {
        xkb_rule_names names{};
        names.layout = "us";
        keymap.reset(xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
        state.reset(xkb_state_new(keymap.get()));
        const std::unique_ptr<char, Release<std::free>> text(
            xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1));
        const std::size_t size = std::strlen(text.get()) + 1;
        const int file = memfd_create("keymap", MFD_CLOEXEC);
        if (write(file, text.get(), size) == static_cast<ssize_t>(size)) {
            send(
                keyboard, Keymap, std::uint32_t{XKB_KEYMAP_FORMAT_TEXT_V1}, file,
                static_cast<std::uint32_t>(size));
            wait();
        }
        close(file);
    }
};

VirtualInput::VirtualInput()
    : m_connection(std::make_unique<Connection>()) {
    if (m_connection->display) {
        m_connection->findDevices();
    }
    if (connected()) {
        m_connection->giveKeymap();
    }
}

VirtualInput::~VirtualInput() = default;

bool VirtualInput::connected() const {
    return m_connection->keyboard && m_connection->pointer;
}

VirtualInput::Key VirtualInput::keyOf(unsigned symbol) const {
    xkb_keymap* keymap = m_connection->keymap.get();
    for (const xkb_level_index_t level : {0U, 1U}) {
        for (xkb_keycode_t code = xkb_keymap_min_keycode(keymap); code <= xkb_keymap_max_keycode(keymap);
             ++code) {
            const xkb_keysym_t* symbols = nullptr;
            if (xkb_keymap_key_get_syms_by_level(keymap, code, 0, level, &symbols) == 1 &&
                *symbols == symbol) {
                return {code, level == 1};
            }
        }
    }
    return {};
}

void VirtualInput::sendKey(unsigned code, bool isDown) {
    // The compositor knows keys as the kernel does, eight below X, and the modifiers by what it is told.
    constexpr unsigned XOffset = 8;
    xkb_state* state = m_connection->state.get();
    const auto part = [&](xkb_state_component component) {
        return xkb_state_serialize_mods(state, component);
    };
    m_connection->send(m_connection->keyboard, KeyChange, now(), code - XOffset, isDown ? 1U : 0U);
    xkb_state_update_key(state, code, isDown ? XKB_KEY_DOWN : XKB_KEY_UP);
    m_connection->send(
        m_connection->keyboard, Modifiers, part(XKB_STATE_MODS_DEPRESSED), part(XKB_STATE_MODS_LATCHED),
        part(XKB_STATE_MODS_LOCKED), xkb_state_serialize_layout(state, XKB_STATE_LAYOUT_EFFECTIVE));
    m_connection->wait();
}

void VirtualInput::sendButton(unsigned button, bool isDown) {
    m_connection->send(m_connection->pointer, Button, now(), button, isDown ? 1U : 0U);
    m_connection->send(m_connection->pointer, Frame);
    m_connection->wait();
}

void VirtualInput::moveTo(int x, int y, int screenWidth, int screenHeight) {
    m_connection->send(m_connection->pointer, MotionAbsolute, now(), x, y, screenWidth, screenHeight);
    m_connection->send(m_connection->pointer, Frame);
    m_connection->wait();
}

} // namespace tour
