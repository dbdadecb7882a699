#include "desktop/host/x_display.h"

#include <QElapsedTimer>
#include <QThread>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <span>
#include <stdexcept>
#include <unistd.h>
#include <xcb/xcb.h>

namespace tz::test {
namespace {

constexpr int patience = 30'000;  // milliseconds

template <class Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;
template <class Reply>
Owned<Reply> owned(Reply* reply) {
  return {reply, &std::free};
}

bool waitFor(const std::function<bool()>& condition) {
  constexpr unsigned long pause = 50;
  QElapsedTimer time;
  for (time.start(); time.elapsed() < patience; QThread::msleep(pause)) {
    if (condition()) return true;
  }
  return false;
}

}  // namespace

XDisplay::XDisplay() {
  server_.start(QStringLiteral("Xvfb"), {"-displayfd", "1", "-screen", "0", "1920x1080x24", "-nolisten", "tcp"});
  QByteArray number;
  while (!number.endsWith('\n') && server_.waitForReadyRead(patience)) number += server_.readAllStandardOutput();
  name_ = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
  connection_ = xcb_connect(name_.toLatin1().constData(), nullptr);
  if (number.isEmpty() || xcb_connection_has_error(connection_) != 0) throw std::runtime_error("no display server");
  root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
}

XDisplay::~XDisplay() {
  xcb_disconnect(connection_);
  server_.terminate();
  if (!server_.waitForFinished(patience)) server_.kill();
}

XDisplay::Window XDisplay::Atom(const char* name) const {
  const auto length = static_cast<std::uint16_t>(std::char_traits<char>::length(name));
  const auto reply = owned(xcb_intern_atom_reply(connection_, xcb_intern_atom(connection_, 0, length, name), nullptr));
  return reply == nullptr ? 0 : reply->atom;
}

std::vector<XDisplay::Window> XDisplay::Showing() const {
  const auto tree = owned(xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
  if (tree == nullptr) return {};
  const Window* first = xcb_query_tree_children(tree.get());
  std::vector<Window> showing;
  for (const Window window : std::span(first, static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())))) {
    const auto asked = xcb_get_window_attributes(connection_, window);
    const auto attributes = owned(xcb_get_window_attributes_reply(connection_, asked, nullptr));
    if (attributes != nullptr && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
        attributes->override_redirect == 0) {
      showing.push_back(window);
    }
  }
  return showing;
}

QString XDisplay::TitleOf(Window window) const {
  constexpr std::uint32_t longest = 1024;
  const auto asked = xcb_get_property(connection_, 0, window, Atom("_NET_WM_NAME"), Atom("UTF8_STRING"), 0, longest);
  const auto reply = owned(xcb_get_property_reply(connection_, asked, nullptr));
  if (reply == nullptr) return {};
  return QString::fromUtf8(static_cast<const char*>(xcb_get_property_value(reply.get())),
                           xcb_get_property_value_length(reply.get()));
}

QStringList XDisplay::Titles() const {
  QStringList titles;
  for (const Window window : Showing()) titles.append(TitleOf(window));
  titles.sort();
  return titles;
}

bool XDisplay::WaitForTitles(const QStringList& wanted) const {
  return waitFor([&] { return Titles() == wanted; });
}

XDisplay::Window XDisplay::Find(const QString& title) const {
  Window found = 0;
  for (const Window window : Showing()) {
    if (TitleOf(window) == title) found = window;
  }
  return found;
}

QRect XDisplay::PlaceOf(Window window) const {
  const auto size = owned(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
  return size == nullptr ? QRect() : QRect(size->x, size->y, size->width, size->height);
}

bool XDisplay::WaitForPicture(Window window) const {
  return waitFor([&] {
    const auto size = owned(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
    if (size == nullptr) return false;
    const auto asked =
        xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, size->width, size->height, ~0U);
    const auto image = owned(xcb_get_image_reply(connection_, asked, nullptr));
    if (image == nullptr) return false;
    const auto* bytes = xcb_get_image_data(image.get());
    const std::span pixels(reinterpret_cast<const std::uint32_t*>(bytes),
                           static_cast<std::size_t>(xcb_get_image_data_length(image.get())) / 4);
    return std::ranges::any_of(pixels, [&](std::uint32_t pixel) { return pixel != pixels.front(); });
  });
}

void XDisplay::Activate(Window window) const {
  xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
  const auto focused = [&] {
    const auto reply = owned(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    return reply != nullptr && reply->focus == window;
  };
  waitFor(focused);
}

void XDisplay::Close(Window window) const {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = Atom("WM_PROTOCOLS");
  event.data.data32[0] = Atom("WM_DELETE_WINDOW");
  xcb_send_event(connection_, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
  xcb_flush(connection_);
}

void XDisplay::Click(Window window, QPoint place) const {
  const auto asked = xcb_translate_coordinates(connection_, window, root_, static_cast<std::int16_t>(place.x()),
                                               static_cast<std::int16_t>(place.y()));
  const auto at = owned(xcb_translate_coordinates_reply(connection_, asked, nullptr));
  if (at == nullptr) throw std::runtime_error("no such window");
  Press({"mousemove", QString::number(at->dst_x), QString::number(at->dst_y), "click", "1"});
}

void XDisplay::Press(const QStringList& keys) const {
  QStringList words = keys;
  if (words.front() != "mousemove") words.prepend("key");
  QProcess tool;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DISPLAY", name_);
  tool.setProcessEnvironment(environment);
  tool.start("xdotool", words);
  if (!tool.waitForFinished(patience) || tool.exitCode() != 0) throw std::runtime_error("no keys can be sent");
}

DesktopProgram::DesktopProgram(const XDisplay& display, const QString& home, const QStringList& arguments) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("DISPLAY", display.Name());
  environment.insert("QT_QPA_PLATFORM", "xcb");
  environment.insert("QT_SCALE_FACTOR", "1");
  environment.insert("XDG_CONFIG_HOME", home);
  process_.setProcessEnvironment(environment);
  process_.setProcessChannelMode(QProcess::ForwardedChannels);
  process_.setChildProcessModifier([] { ::setsid(); });
  process_.start(TZ_DESKTOP_PROGRAM, arguments);
  if (!process_.waitForStarted(patience)) throw std::runtime_error("the desktop program does not start");
  group_ = process_.processId();
}

DesktopProgram::~DesktopProgram() {
  if (process_.state() == QProcess::NotRunning) return;
  process_.kill();
  process_.waitForFinished(patience);
}

int DesktopProgram::Ended() {
  if (process_.state() != QProcess::NotRunning && !process_.waitForFinished(patience)) return -1;
  return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

bool DesktopProgram::LeavesProcesses() const { return ::kill(static_cast<pid_t>(-group_), 0) == 0 || errno != ESRCH; }

}  // namespace tz::test
