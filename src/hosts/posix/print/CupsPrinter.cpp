#include "hosts/posix/print/CupsPrinter.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "core/Result.h"
#include "core/ThreadSafety.h"
#include "core/tasks/Thread.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cups/cups.h>
#include <cups/pwg.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane {

namespace {

struct HttpCloser {
    void operator()(http_t* http) const { httpClose(http); }
};
struct IppDeleter {
    void operator()(ipp_t* message) const { ippDelete(message); }
};
using IppMessage = std::unique_ptr<ipp_t, IppDeleter>;

/// The library would otherwise ask on the terminal.
const char* noPassword(const char*, http_t*, const char*, const char*, void*)
{
    return nullptr;
}

/// Cuts a connection off when an answer takes too long or a stop comes: the library itself would
/// read an endless one forever. Watches beside the thread that waits.
class CutOff {
public:
    enum class Reason : std::uint8_t { None, Time, Stop };

    CutOff(http_t* http, std::chrono::milliseconds longest, const StopFlag* stop)
        : m_http(http), m_longest(longest), m_stop(stop)
    {
    }
    ~CutOff()
    {
        {
            const MutexLock lock(m_mutex);
            m_done = true;
        }
        m_wake.notifyOne();
    }
    CutOff(const CutOff&) = delete;
    CutOff& operator=(const CutOff&) = delete;

    /// The time begins anew, for the next answer.
    void restart()
    {
        const MutexLock lock(m_mutex);
        m_end = std::chrono::steady_clock::now() + m_longest;
    }

    [[nodiscard]] Reason reason() const { return m_reason; }

private:
    void watch()
    {
        constexpr std::chrono::milliseconds kStep{20};
        MutexLock lock(m_mutex);
        while (!m_done) {
            if (m_reason == Reason::None && m_stop && m_stop->requested())
                m_reason = Reason::Stop;
            else if (m_reason == Reason::None && std::chrono::steady_clock::now() > m_end)
                m_reason = Reason::Time;
            // Again and again, as the library may connect once more on its own.
            if (m_reason != Reason::None)
                shutdown(httpGetFd(m_http), SHUT_RDWR);
            m_wake.waitFor(lock, kStep);
        }
    }

    http_t* m_http;
    const std::chrono::milliseconds m_longest;
    const StopFlag* m_stop;
    std::atomic<Reason> m_reason{Reason::None};
    Mutex m_mutex;
    Condition m_wake;
    std::chrono::steady_clock::time_point
        m_end GUARDED_BY(m_mutex) = std::chrono::steady_clock::now() + m_longest;
    bool m_done GUARDED_BY(m_mutex) = false;
    Thread m_thread{[this] { watch(); }}; // last: it ends before anything it uses
};

/// One connection to the print service, and why it last failed.
class Connection {
public:
    Connection(const CupsPrinter::Options& options, const StopFlag* stop)
        : m_patience(options.patience)
    {
        cupsSetPasswordCB2(noPassword, nullptr);
        cupsSetServer(nullptr); // else the first call's settings stay in force
        const char* server = options.server.empty() ? cupsServer() : options.server.c_str();
        m_http.reset(httpConnect2(server, ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                  static_cast<int>(m_patience.count()), nullptr));
        if (m_http) {
            httpSetTimeout(m_http.get(), std::chrono::duration<double>(m_patience).count(),
                           &Connection::onSilence, this);
            m_cutOff.emplace(m_http.get(), options.longest, stop);
        }
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] bool connected() const { return m_http != nullptr; }
    [[nodiscard]] http_t* http() const { return m_http.get(); }

    /// The next answer has its time to itself.
    void nextAnswer() { m_cutOff->restart(); }

    /// Sends a request and reads the answer, up to its limit of bytes; null where none comes. Takes
    /// the request over.
    [[nodiscard]] IppMessage ask(ipp_t* request)
    {
        const IppMessage owned(request);
        nextAnswer();
        http_status_t status = cupsSendRequest(http(), request, "/", ippLength(request));
        while (status == HTTP_STATUS_CONTINUE && !cut())
            status = httpUpdate(http());
        if (status != HTTP_STATUS_OK || cut())
            return nullptr;
        IppMessage answer(ippNew());
        m_mayCome = kMostAnswered;
        const bool read =
            ippReadIO(this, &Connection::onBytes, 1, nullptr, answer.get()) == IPP_STATE_DATA;
        return read ? std::move(answer) : nullptr;
    }

    [[nodiscard]] Error noService() const
    {
        const auto reason = m_cutOff ? m_cutOff->reason() : CutOff::Reason::None;
        if (reason == CutOff::Reason::Stop)
            return Error{"stopped while waiting for the print service"};
        if (reason == CutOff::Reason::Time || m_mayCome == 0)
            return Error{"the print service's answer does not end; restart it, or try again later"};
        if (m_silent) {
            return Error{"the print service does not answer; it was given " +
                         std::to_string((m_patience.count() + 999) / 1000) +
                         " s. Restart it, or try again later"};
        }
        return Error{"there is no print service to be reached (" + lastWords() +
                     "); install and start CUPS, or set CUPS_SERVER to a computer that runs it"};
    }

    /// Whether the last request failed because nobody answered, as opposed to a refusal.
    [[nodiscard]] bool lost() const
    {
        const ipp_status_t status = cupsLastError();
        return silent() || status == IPP_STATUS_ERROR_SERVICE_UNAVAILABLE ||
               httpError(m_http.get()) != 0;
    }

    /// Whether it said nothing, or nothing that ended.
    [[nodiscard]] bool silent() const { return m_silent || cut(); }
    [[nodiscard]] static std::string lastWords() { return forScreen(cupsLastErrorString()); }

private:
    static constexpr std::size_t kMostAnswered = std::size_t{4} << 20;

    [[nodiscard]] bool cut() const { return m_cutOff->reason() != CutOff::Reason::None; }

    /// Fills the whole buffer, or says that it cannot.
    static ssize_t onBytes(void* context, ipp_uchar_t* buffer, std::size_t bytes)
    {
        auto& self = *static_cast<Connection*>(context);
        self.m_mayCome -= std::min(bytes, self.m_mayCome);
        if (self.m_mayCome == 0)
            return -1;
        std::size_t got = 0;
        while (got < bytes) {
            const ssize_t more =
                httpRead2(self.http(), reinterpret_cast<char*>(buffer) + got, bytes - got);
            if (more <= 0)
                return -1;
            got += static_cast<std::size_t>(more);
        }
        return static_cast<ssize_t>(bytes);
    }

    static int onSilence(http_t*, void* self)
    {
        static_cast<Connection*>(self)->m_silent = true;
        return 0; // give up
    }

    std::chrono::milliseconds m_patience;
    bool m_silent = false;
    std::size_t m_mayCome = kMostAnswered; ///< bytes of the answer that is being read
    std::unique_ptr<http_t, HttpCloser> m_http;
    std::optional<CutOff> m_cutOff; // ends before the connection does
};

Result<std::vector<std::string>> queues(Connection& service)
{
    ipp_t* request = ippNewRequest(IPP_OP_CUPS_GET_PRINTERS);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
                 "printer-name");
    const IppMessage answer = service.ask(request);
    std::vector<std::string> names;
    const auto status = answer ? ippGetStatusCode(answer.get()) : IPP_STATUS_ERROR_INTERNAL;
    if (status == IPP_STATUS_ERROR_NOT_FOUND)
        return names; // its way of saying that it has none
    if (status > IPP_STATUS_OK_EVENTS_COMPLETE)
        return service.noService();
    for (ipp_attribute_t* name = ippFindAttribute(answer.get(), "printer-name", IPP_TAG_NAME); name;
         name = ippFindNextAttribute(answer.get(), "printer-name", IPP_TAG_NAME))
        names.emplace_back(ippGetString(name, 0, nullptr));
    return names;
}

std::optional<std::string> defaultQueue(Connection& service)
{
    service.nextAnswer();
    const char* name = cupsGetDefault2(service.http());
    return name ? std::optional<std::string>(name) : std::nullopt;
}

/// The queue of that name, or the default one for none. An error names those there are.
Result<std::string> existingQueue(Connection& service, std::string_view wanted)
{
    const auto names = queues(service);
    if (!names)
        return names.error();
    std::string name(wanted);
    if (name.empty())
        name = defaultQueue(service).value_or("");
    if (std::find(names->begin(), names->end(), name) != names->end())
        return name;
    if (service.silent())
        return service.noService();
    std::string choice;
    for (const auto& other : *names)
        choice += (choice.empty() ? "choose one of: " : ", ") + forScreen(other);
    if (choice.empty())
        choice = "the print service has none; set one up";
    return Error{(name.empty() ? "no printer is set as the default one"
                               : "there is no printer \"" + forScreen(name) + "\"") +
                 "; " + choice};
}

Result<UniqueFd> openDocument(const std::string& path)
{
    UniqueFd file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file)
        return Error{"cannot open " + forScreen(path) + " to print it: " + errorText(errno)};
    struct stat data {};
    if (fstat(file.get(), &data) != 0 || !S_ISREG(data.st_mode))
        return Error{"cannot print " + forScreen(path) + ": it is not a file"};
    if (data.st_size == 0)
        return Error{"cannot print " + forScreen(path) + ": it is empty"};
    return file;
}

/// The job's options, freed at the end.
class JobOptions {
public:
    explicit JobOptions(const PrintSettings& settings)
    {
        constexpr double kHundredthMillimetres = 2540.0 / 72.0;
        const auto units = [](double points) {
            return static_cast<int>(std::lround(points * kHundredthMillimetres));
        };
        if (const pwg_media_t* media =
                pwgMediaForSize(units(settings.widthPoints), units(settings.heightPoints)))
            add("media", media->pwg);
        add("orientation-requested", "3"); // portrait
        for (const char* margin : {"page-left", "page-right", "page-top", "page-bottom"})
            add(margin, "0");
        add("print-scaling", "none");
    }
    ~JobOptions() { cupsFreeOptions(m_count, m_options); }
    JobOptions(const JobOptions&) = delete;
    JobOptions& operator=(const JobOptions&) = delete;

    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] cups_option_t* get() const { return m_options; }

private:
    void add(const char* name, const char* value)
    {
        m_count = cupsAddOption(name, value, m_count, &m_options);
    }

    int m_count = 0;
    cups_option_t* m_options = nullptr;
};

Error refusal(const Connection& service, const std::string& queue)
{
    if (service.lost())
        return service.noService();
    return Error{"the printer \"" + forScreen(queue) +
                 "\" refused the report: " + Connection::lastWords()};
}

/// Hands the file's bytes to the job; false where the service stops taking them.
Result<bool> sendBytes(Connection& service, int file, const std::string& path)
{
    std::array<char, std::size_t{64} * 1024> buffer;
    while (true) {
        const ssize_t got = read(file, buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return Error{"cannot read " + forScreen(path) + ": " + errorText(errno)};
        if (got == 0)
            return true;
        service.nextAnswer();
        if (cupsWriteRequestData(service.http(), buffer.data(), static_cast<std::size_t>(got)) !=
            HTTP_STATUS_CONTINUE)
            return false;
    }
}

/// The document of a job that exists.
Result<Done> sendDocument(Connection& service, const std::string& queue, int job, int file,
                          const std::string& path)
{
    if (cupsStartDocument(service.http(), queue.c_str(), job, "Report.PDF", CUPS_FORMAT_PDF, 1) !=
        HTTP_STATUS_CONTINUE)
        return refusal(service, queue);
    const auto sent = sendBytes(service, file, path);
    const ipp_status_t ended = cupsFinishDocument(service.http(), queue.c_str());
    if (!sent)
        return sent.error();
    if (!*sent || ended > IPP_STATUS_OK_EVENTS_COMPLETE)
        return refusal(service, queue);
    return Done{};
}

} // namespace

Result<std::vector<PrinterName>> CupsPrinter::printers()
{
    Connection service(m_options, m_stop);
    if (!service.connected())
        return service.noService();
    const auto names = queues(service);
    if (!names)
        return names.error();
    const auto chosen = defaultQueue(service);
    std::vector<PrinterName> found;
    for (const auto& name : *names)
        found.push_back({name, name == chosen});
    return found;
}

Result<int> CupsPrinter::printFile(const std::string& hostPath, std::string_view title,
                                   std::string_view queue, const PrintSettings& settings)
{
    const auto file = openDocument(hostPath);
    if (!file)
        return file.error();
    Connection service(m_options, m_stop);
    if (!service.connected())
        return service.noService();
    const auto name = existingQueue(service, queue);
    if (!name)
        return name.error();
    const JobOptions options(settings);
    service.nextAnswer();
    const int job = cupsCreateJob(service.http(), name->c_str(), std::string(title).c_str(),
                                  options.count(), options.get());
    if (job == 0)
        return refusal(service, *name);
    const auto sent = sendDocument(service, *name, job, file->get(), hostPath);
    if (!sent) {
        if (!service.lost())
            cupsCancelJob2(service.http(), name->c_str(), job, 0);
        return sent.error();
    }
    return job;
}

} // namespace pryvane
