// Launches a program and follows its start on X, from the moment of the launch: until its
// window is mapped (an X event, no polling), and until the home page's colour shows in that
// window (the screen is read every 10 ms). It reads the memory of the program and of all its
// child processes 2 s after the launch, and compares the window at first sight of the page
// with the window 3 s after the launch. Asked to, it then presses Down in the window a number
// of times (a walk through a tree), reads the memory again, clicks a point of the window and
// times until a second colour shows there (a page that a link leads to). Then it kills them
// all. Keys and clicks go through xdotool.
//
//   startup_watch [-k downs] [-c x,y] <window name> <rrggbb>[+<rrggbb>] <timeout ms>
//                 <program> [arguments...]
//
// Prints one line: window_ms painted_ms changed_px rss_kb pss_kb processes walked_rss_kb
// walked_pss_kb linked_ms, with "-" for what did not happen before the timeout (or was not
// asked).
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kPaintPoll = 10ms;
constexpr long kPaintedPixels = 50;  // a heading's worth, not a stray pixel
constexpr auto kMemoryAt = 2000ms;   // after the launch
constexpr auto kSecondLookAt = 3000ms;
constexpr auto kWalkStep = 80ms;      // between two key presses
constexpr auto kWalkSettle = 1000ms;  // memory is read this long after the walk

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

class Screen {
  public:
    Screen() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_))
            throw std::runtime_error("cannot open the X display");
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        if (screen->root_depth != 24)
            throw std::runtime_error("the screen must be 24 bits deep");
        root_ = screen->root;
        width_ = screen->width_in_pixels;
        height_ = screen->height_in_pixels;
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(connection_);
    }
    ~Screen() { xcb_disconnect(connection_); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    // The first top-level window mapped with this name.
    std::optional<xcb_window_t> waitForWindow(const std::string& name, Clock::time_point deadline,
                                              const std::function<bool()>& gaveUp) {
        while (Clock::now() < deadline && !gaveUp()) {
            while (Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
                if ((event->response_type & 0x7F) != XCB_MAP_NOTIFY)
                    continue;
                const auto window = reinterpret_cast<xcb_map_notify_event_t*>(event.get())->window;
                if (nameOf(window) == name)
                    return window;
            }
            pollfd fd{xcb_get_file_descriptor(connection_), POLLIN, 0};
            poll(&fd, 1, 5);
        }
        return std::nullopt;
    }

    // The pixels of the window's rectangle on the screen, 0xRRGGBB, row by row; empty when
    // it can't be read.
    std::vector<std::uint32_t> pixelsOf(xcb_window_t window) {
        Reply<xcb_get_geometry_reply_t> geometry{
            xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr)};
        Reply<xcb_translate_coordinates_reply_t> origin{xcb_translate_coordinates_reply(
            connection_, xcb_translate_coordinates(connection_, window, root_, 0, 0), nullptr)};
        if (!geometry || !origin)
            return {};
        const int x = std::max<int>(origin->dst_x, 0), y = std::max<int>(origin->dst_y, 0);
        const int w = std::min<int>(geometry->width, width_ - x);
        const int h = std::min<int>(geometry->height, height_ - y);
        if (w <= 0 || h <= 0)
            return {};
        Reply<xcb_get_image_reply_t> image{xcb_get_image_reply(
            connection_,
            xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_,
                          static_cast<std::int16_t>(x), static_cast<std::int16_t>(y),
                          static_cast<std::uint16_t>(w), static_cast<std::uint16_t>(h), ~0u),
            nullptr)};
        if (!image)
            return {};
        const auto* data = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
        std::vector<std::uint32_t> pixels(data, data + xcb_get_image_data_length(image.get()) / 4);
        for (auto& pixel : pixels)
            pixel &= 0xFFFFFF;
        return pixels;
    }

    // The window's top left corner on the screen.
    std::pair<int, int> originOf(xcb_window_t window) {
        Reply<xcb_translate_coordinates_reply_t> origin{xcb_translate_coordinates_reply(
            connection_, xcb_translate_coordinates(connection_, window, root_, 0, 0), nullptr)};
        return origin ? std::make_pair(int{origin->dst_x}, int{origin->dst_y})
                      : std::make_pair(0, 0);
    }

  private:
    std::string nameOf(xcb_window_t window) {
        Reply<xcb_get_property_reply_t> name{
            xcb_get_property_reply(connection_,
                                   xcb_get_property(connection_, 0, window, XCB_ATOM_WM_NAME,
                                                    XCB_GET_PROPERTY_TYPE_ANY, 0, 256),
                                   nullptr)};
        if (!name)
            return {};
        return {static_cast<const char*>(xcb_get_property_value(name.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(name.get()))};
    }

    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
    int width_ = 0, height_ = 0;
};

// ---- processes ----

pid_t parentOf(pid_t pid) {
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string line;
    std::getline(stat, line);
    const auto close = line.rfind(')');  // the command name may hold blanks and brackets
    if (close == std::string::npos)
        return -1;
    std::istringstream rest(line.substr(close + 2));
    char state = 0;
    pid_t parent = -1;
    rest >> state >> parent;
    return parent;
}

// The program and every process below it.
std::vector<pid_t> familyOf(pid_t program) {
    std::vector<std::pair<pid_t, pid_t>> parents;  // (process, its parent)
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().string();
        pid_t pid = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
        if (error == std::errc() && end == name.data() + name.size())
            parents.emplace_back(pid, parentOf(pid));
    }
    std::vector<pid_t> family{program};
    for (std::size_t i = 0; i < family.size(); ++i) {
        for (const auto& [pid, parent] : parents) {
            if (parent == family[i])
                family.push_back(pid);
        }
    }
    return family;
}

// A "Key:   1234 kB" line of a /proc file, in kB; 0 when absent.
long kilobytes(const std::string& path, const std::string& key) {
    std::ifstream file(path);
    std::string line;
    while (std::getline(file, line)) {
        if (line.rfind(key, 0) == 0)
            return std::strtol(line.c_str() + key.size(), nullptr, 10);
    }
    return 0;
}

struct Memory {
    long rss = 0, pss = 0;
    std::size_t processes = 0;
};

Memory memoryOf(const std::vector<pid_t>& family) {
    Memory memory;
    for (const pid_t pid : family) {
        const std::string proc = "/proc/" + std::to_string(pid);
        memory.rss += kilobytes(proc + "/status", "VmRSS:");
        memory.pss += kilobytes(proc + "/smaps_rollup", "Pss:");
    }
    memory.processes = family.size();
    return memory;
}

pid_t launch(char** argv) {
    const pid_t pid = fork();
    if (pid == 0) {
        setpgid(0, 0);
        const int quiet = open("/dev/null", O_WRONLY);
        dup2(quiet, STDOUT_FILENO);
        dup2(quiet, STDERR_FILENO);
        execvp(argv[0], argv);
        _exit(127);
    }
    return pid;
}

void endFamily(pid_t program, const std::vector<pid_t>& family) {
    for (const pid_t pid : family)
        kill(pid, SIGKILL);
    kill(-program, SIGKILL);
    waitpid(program, nullptr, 0);
    const auto deadline = Clock::now() + 5s;
    for (const pid_t pid : family) {
        while (Clock::now() < deadline && kill(pid, 0) == 0 && parentOf(pid) != 1)
            std::this_thread::sleep_for(5ms);
    }
}

std::string millisecondsOr(std::optional<Clock::duration> span) {
    if (!span)
        return "-";
    return std::to_string(std::chrono::duration_cast<std::chrono::microseconds>(*span).count() /
                          1000.0);
}

std::vector<std::uint32_t> coloursOf(const std::string& list) {
    std::vector<std::uint32_t> colours;
    std::istringstream items(list);
    for (std::string item; std::getline(items, item, '+');)
        colours.push_back(static_cast<std::uint32_t>(std::stoul(item, nullptr, 16)));
    return colours;
}

long countOf(const std::vector<std::uint32_t>& pixels, std::uint32_t colour) {
    return std::count(pixels.begin(), pixels.end(), colour);
}

// The window's pixels once the colour shows in it, with the time from the launch; nothing
// when it did not show before the deadline.
std::optional<std::pair<Clock::duration, std::vector<std::uint32_t>>> waitForColour(
    Screen& screen, xcb_window_t window, std::uint32_t colour, Clock::time_point start,
    Clock::time_point deadline) {
    for (auto tick = Clock::now(); tick < deadline; tick += kPaintPoll) {
        std::vector<std::uint32_t> pixels = screen.pixelsOf(window);
        if (countOf(pixels, colour) >= kPaintedPixels)
            return std::make_pair(Clock::now() - start, std::move(pixels));
        std::this_thread::sleep_until(tick + kPaintPoll);
    }
    return std::nullopt;
}

long differing(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
    if (a.size() != b.size())
        return static_cast<long>(std::max(a.size(), b.size()));
    long count = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        count += a[i] != b[i];
    return count;
}

void xdotool(const std::string& arguments) {
    const std::string command = "xdotool " + arguments + " >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0)
        std::fprintf(stderr, "startup_watch: failed: %s\n", command.c_str());
}

// Down pressed in the window, one press at a time.
void walk(xcb_window_t window, int downs) {
    xdotool("windowfocus --sync " + std::to_string(window));
    for (int i = 0; i < downs; ++i) {
        xdotool("key --clearmodifiers Down");
        std::this_thread::sleep_for(kWalkStep);
    }
}

void click(Screen& screen, xcb_window_t window, int x, int y) {
    const auto [left, top] = screen.originOf(window);
    xdotool("mousemove " + std::to_string(left + x) + " " + std::to_string(top + y) + " click 1");
}

std::string orDash(long value, bool known) {
    return known ? std::to_string(value) : "-";
}

struct Options {
    int downs = 0;
    std::optional<std::pair<int, int>> clickAt;
    int first = 1;  // the first argument after the options
};

Options optionsOf(int argc, char* argv[]) {
    Options options;
    while (options.first + 1 < argc && argv[options.first][0] == '-') {
        const std::string flag = argv[options.first];
        const std::string value = argv[options.first + 1];
        if (flag == "-k") {
            options.downs = std::stoi(value);
        } else if (flag == "-c") {
            const auto comma = value.find(',');
            options.clickAt = {std::stoi(value.substr(0, comma)),
                               std::stoi(value.substr(comma + 1))};
        } else {
            throw std::invalid_argument("unknown option " + flag);
        }
        options.first += 2;
    }
    return options;
}

}  // namespace

int main(int argc, char* argv[]) {
    try {
        const Options options = optionsOf(argc, argv);
        if (argc - options.first < 4) {
            std::fprintf(stderr,
                         "usage: %s [-k downs] [-c x,y] <window name> <rrggbb>[+<rrggbb>] "
                         "<timeout ms> <program> [arguments...]\n",
                         argv[0]);
            return 2;
        }
        char** rest = argv + options.first;
        const std::string windowName = rest[0];
        const std::vector<std::uint32_t> colours = coloursOf(rest[1]);
        const auto timeout = std::chrono::milliseconds(std::stol(rest[2]));
        Screen screen;

        const auto start = Clock::now();
        const pid_t program = launch(rest + 3);
        const auto deadline = start + timeout;
        const auto exited = [program] { return waitpid(program, nullptr, WNOHANG) == program; };

        std::optional<Clock::duration> windowAt, paintedAt, linkedAt;
        std::optional<long> changed;
        Memory memory, walked;
        bool walkedKnown = false;
        const auto window = screen.waitForWindow(windowName, deadline, exited);
        if (window) {
            windowAt = Clock::now() - start;
            if (auto painted = waitForColour(screen, *window, colours[0], start, deadline)) {
                paintedAt = painted->first;
                std::this_thread::sleep_until(start + kMemoryAt);
                memory = memoryOf(familyOf(program));
                std::this_thread::sleep_until(start + kSecondLookAt);
                changed = differing(painted->second, screen.pixelsOf(*window));
                if (options.downs > 0) {
                    walk(*window, options.downs);
                    std::this_thread::sleep_for(kWalkSettle);
                    walked = memoryOf(familyOf(program));
                    walkedKnown = true;
                }
                if (options.clickAt && colours.size() > 1) {
                    const auto clicked = Clock::now();
                    click(screen, *window, options.clickAt->first, options.clickAt->second);
                    if (const auto linked = waitForColour(screen, *window, colours[1], clicked,
                                                          Clock::now() + timeout))
                        linkedAt = linked->first;
                }
            }
        }
        const std::vector<pid_t> family = familyOf(program);
        endFamily(program, family);

        std::printf(
            "window_ms=%s painted_ms=%s changed_px=%s rss_kb=%ld pss_kb=%ld processes=%zu "
            "walked_rss_kb=%s walked_pss_kb=%s linked_ms=%s\n",
            millisecondsOr(windowAt).c_str(), millisecondsOr(paintedAt).c_str(),
            orDash(changed.value_or(0), changed.has_value()).c_str(), memory.rss, memory.pss,
            memory.processes, orDash(walked.rss, walkedKnown).c_str(),
            orDash(walked.pss, walkedKnown).c_str(), millisecondsOr(linkedAt).c_str());
        return paintedAt ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "startup_watch: %s\n", failure.what());
        return 2;
    }
}
