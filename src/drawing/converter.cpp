#include "drawing/converter.h"

#include "base/descriptor.h"
#include "base/spawn.h"
#include "drawing/drawing_fields.h"
#include "drawing/worker_messages.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <ctime>
#include <mutex>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <thread>
#include <vector>

namespace quillery {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// What a question may cost. Time is the processor's: a busy machine is no fault of the drawing. By
// the clock on the wall it may take longer, but not for ever, for what waits takes no processor.
struct Allowance {
  std::chrono::nanoseconds processor; // of the worker, in all
  Clock::time_point wall;
};
constexpr int kWallTimes = 5;

// A process that draws drawings, one after the other.
class Worker {
public:
  enum class Failing { notStarted, tooSlow, broken };

  static std::unique_ptr<Worker> start(const std::filesystem::path& program, std::size_t bytes) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return nullptr;
    Descriptor ours(ends[0]);
    const Descriptor theirs(ends[1]);
    pid_t process = 0;
    if (spawnProgram({.program = program.string(),
                      .arguments = {std::to_string(bytes)},
                      .input = theirs.get(),
                      .output = theirs.get(),
                      .leadsGroup = true},
                     process) != 0)
      return nullptr;
    return std::unique_ptr<Worker>(new Worker(process, std::move(ours)));
  }

  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker() {
    // With all that it started: it may be in the middle of a tracing.
    kill(-process_, SIGKILL);
    int status = 0;
    awaitProgram(process_, status);
  }

  /// The fields of its answer. After a failure the worker is of no more use.
  Result<Fields, Failing> ask(const Fields& request, milliseconds time) {
    ++served_;
    const Allowance deadline{processorTime() + time, Clock::now() + time * kWallTimes};
    if (const auto sent = transfer(encodeMessage(request), deadline); !sent)
      return Failure{sent.error()};
    std::string head(kLengthBytes, '\0');
    if (const auto read = receive(head, deadline); !read) return Failure{read.error()};
    const auto length = messageLength(head);
    if (!length) return Failure{Failing::broken};
    std::string body(*length, '\0');
    if (const auto read = receive(body, deadline); !read) return Failure{read.error()};
    auto fields = decodeFields(body);
    if (!fields) return Failure{Failing::broken};
    return *std::move(fields);
  }

  std::size_t served() const { return served_; }

private:
  Worker(pid_t process, Descriptor socket) : process_(process), socket_(std::move(socket)) {}

  std::chrono::nanoseconds processorTime() const {
    clockid_t clock{};
    timespec used{};
    if (clock_getcpuclockid(process_, &clock) != 0 || clock_gettime(clock, &used) != 0) return {};
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
  }

  // Waits until the socket can be used in this way.
  Result<void, Failing> await(short events, const Allowance& allowance) const {
    constexpr milliseconds kLook{50}; // at the time that was used
    for (;;) {
      pollfd waiting{socket_.get(), events, 0};
      const int ready = poll(&waiting, 1, static_cast<int>(kLook.count()));
      if (ready > 0) return {};
      if (ready < 0 && errno != EINTR) return Failure{Failing::broken};
      if (Clock::now() > allowance.wall || processorTime() > allowance.processor)
        return Failure{Failing::tooSlow};
    }
  }

  Result<void, Failing> transfer(std::string_view bytes, const Allowance& deadline) const {
    while (!bytes.empty()) {
      if (const auto ready = await(POLLOUT, deadline); !ready) return ready;
      const ssize_t sent =
          send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
      if (sent < 0 && errno != EINTR && errno != EAGAIN) return Failure{Failing::broken};
      if (sent > 0) bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return {};
  }

  Result<void, Failing> receive(std::string& bytes, const Allowance& deadline) const {
    for (std::size_t at = 0; at < bytes.size();) {
      if (const auto ready = await(POLLIN, deadline); !ready) return ready;
      const ssize_t got = recv(socket_.get(), bytes.data() + at, bytes.size() - at, MSG_DONTWAIT);
      if (got == 0 || (got < 0 && errno != EINTR && errno != EAGAIN))
        return Failure{Failing::broken};
      if (got > 0) at += static_cast<std::size_t>(got);
    }
    return {};
  }

  pid_t process_;
  Descriptor socket_;
  std::size_t served_ = 0;
};

// A sheet of letters may take as long as so many drawings.
constexpr int kDrawingsOfSheet = 20;

std::string inWords(milliseconds time) {
  return std::to_string(time.count() / 1000) + " s";
}

} // namespace

std::optional<std::filesystem::path> findConverter(const std::filesystem::path& executable) {
  constexpr const char* kName = "convert_drawing";
  const auto folder = executable.parent_path();
  for (const auto& program :
       {folder / kName, folder.parent_path() / "libexec" / "quillery" / kName}) {
    std::error_code error;
    if (std::filesystem::is_regular_file(program, error)) return program;
  }
  return std::nullopt;
}

// The processes that wait for a drawing, and how many there may be at work.
class DrawingConverter::Workers {
public:
  Workers(std::filesystem::path program, ConversionLimits limits)
      : program_(std::move(program)), limits_(limits),
        most_(std::max(1U, std::thread::hardware_concurrency())) {}

  Result<Fields, std::string> answer(std::string_view word, std::string_view file) {
    const Turn turn(*this);
    const Fields request = {std::string(word), std::string(file)};
    const bool canTrace = word == kAskFlatten;
    const auto time = word == kAskSheet ? limits_.time * kDrawingsOfSheet : limits_.time;
    auto answered = ask(request, canTrace ? limits_.time * 2 / 3 : time);
    // What a library makes of a page's curves can fail where its picture does not.
    if (!answered && answered.error() != Worker::Failing::notStarted && canTrace)
      answered = ask({kAskTrace, std::string(file)}, limits_.time / 3);
    if (!answered) return Failure{inWords(answered.error(), time)};
    Fields fields = std::move(answered).value();
    if (fields.size() == 2 && fields[0] == kRefused) return Failure{std::move(fields[1])};
    if (fields.empty() || fields[0] != kDone)
      return Failure{inWords(Worker::Failing::broken, time)};
    return fields;
  }

  std::string inWords(Worker::Failing failing, milliseconds time) const {
    switch (failing) {
    case Worker::Failing::notStarted:
      return program_.string() + " could not be started";
    case Worker::Failing::tooSlow:
      return "it takes longer than " + quillery::inWords(time);
    case Worker::Failing::broken:
      break;
    }
    return "it can't be drawn: drawing it took more than " +
           std::to_string(limits_.bytes / (1024 * 1024)) + " MB, or failed";
  }

private:
  // One of as many drawings at a time as there are processors.
  class Turn {
  public:
    explicit Turn(Workers& workers) : workers_(workers) {
      std::unique_lock lock(workers_.mutex_);
      workers_.freed_.wait(lock, [&] { return workers_.busy_ < workers_.most_; });
      ++workers_.busy_;
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() {
      {
        const std::lock_guard lock(workers_.mutex_);
        --workers_.busy_;
      }
      workers_.freed_.notify_one();
    }

  private:
    Workers& workers_;
  };

  Result<Fields, Worker::Failing> ask(const Fields& request, milliseconds time) {
    for (;;) {
      auto worker = take();
      if (!worker) return Failure{Worker::Failing::notStarted};
      auto answered = worker->ask(request, time);
      if (answered) {
        const std::lock_guard lock(mutex_);
        idle_.push_back(std::move(worker));
        return answered;
      }
      // A drawing answers for itself alone, not for the memory that those before it left behind.
      const bool hadOthers = worker->served() > 1;
      if (answered.error() != Worker::Failing::broken || !hadOthers) return answered;
    }
  }

  std::unique_ptr<Worker> take() {
    {
      const std::lock_guard lock(mutex_);
      if (!idle_.empty()) {
        auto worker = std::move(idle_.back());
        idle_.pop_back();
        return worker;
      }
    }
    return Worker::start(program_, limits_.bytes);
  }

  const std::filesystem::path program_;
  const ConversionLimits limits_;
  const std::size_t most_;
  std::mutex mutex_; // guards below
  std::condition_variable freed_;
  std::size_t busy_ = 0;
  std::vector<std::unique_ptr<Worker>> idle_;
};

DrawingConverter::DrawingConverter(std::filesystem::path program, ConversionLimits limits)
    : workers_(std::make_unique<Workers>(std::move(program), limits)) {}
DrawingConverter::~DrawingConverter() = default;

Result<FlatDrawing, std::string> DrawingConverter::flatten(std::string_view file) {
  const auto fields = workers_->answer(kAskFlatten, file);
  if (!fields) return Failure{fields.error()};
  std::size_t at = 1;
  auto drawing = readFlatDrawing(fields.value(), at);
  if (!drawing) return Failure{std::string("what was drawn can't be read")};
  return *std::move(drawing);
}

Result<DrawingSheet, std::string> DrawingConverter::flattenSheet(std::string_view file) {
  const auto fields = workers_->answer(kAskSheet, file);
  if (!fields) return Failure{fields.error()};
  std::size_t at = 1;
  auto sheet = readDrawingSheet(fields.value(), at);
  if (!sheet) return Failure{std::string("what was drawn can't be read")};
  return *std::move(sheet);
}

} // namespace quillery
