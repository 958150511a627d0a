#include "apps/scan/FileScan.h"
#include "apps/scan/SummaryValues.h"
#include "python/Binding.h"
#include "python/Bindings.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace corvane::python {

namespace {

constexpr const char* kScanDoc =
    "What lists show of every MP3 file below some folders, one dictionary a file, in the order of the paths.\n\n"
    "paths: a folder or file, or an iterable of them, each as str, bytes or os.PathLike. In folders every *.mp3 is\n"
    "read, upper or lower case; links to folders are not followed. A file is read whatever its name is.\n"
    "jobs: files read at the same time, 1 to 256; by default the number of processors, at most 8. The order stays.\n"
    "onerror: called with the path (str) and the reason (str) of each folder that cannot be read; by default these\n"
    "are warnings (RuntimeWarning).\n\n"
    "A dictionary has path, title, artist, album, year, track, genre, comment (str; ID3v2 text when there is any,\n"
    "else ID3v1, else \"\"), duration (seconds, -1 when unknown), bitRate (kbit/s, -1 when a VBR file does not tell\n"
    "it, 0 without audio), frequency (Hz, 0 without audio), vbr (bool) and tags (list of str, such as\n"
    "[\"ID3v2.3.0\", \"ID3v1.1\"]). One of a file that cannot be read has path and error only, and the scan goes on.\n"
    "Pictures are not read. Raises ValueError for another number of jobs, TypeError for an onerror that cannot be "
    "called.";

struct ScannedFile {
    std::string path;
    std::optional<FileSummary> summary; // nothing for a file that could not be read
    std::string error;
};

using ScannedBatch = std::vector<ScannedFile>;

ScannedBatch scanBatch(const scan::Batch& paths) {
    ScannedBatch files;
    files.reserve(paths.size());
    for (const std::string& path : paths) {
        try {
            files.push_back({path, summarize(path), {}});
        } catch (const std::exception& failure) {
            files.push_back({path, std::nullopt, failure.what()});
        }
    }
    return files;
}

py::object keyOf(std::string_view name) { return py::str(name.data(), name.size()); }

py::dict dictionaryOf(const ScannedFile& file) {
    py::dict values;
    values["path"] = FileName{file.path};
    if (!file.summary) {
        values["error"] = Text{file.error};
        return values;
    }
    const FileSummary& summary = *file.summary;
    for (const scan::TextValue& value : scan::kTexts) values[keyOf(value.name)] = Text{summary.*value.text};
    for (const scan::NumberValue& value : scan::kNumbers) values[keyOf(value.name)] = summary.*value.number;
    values["vbr"] = summary.vbr;
    py::list tags;
    for (const std::string& tag : summary.tags) tags.append(Text{tag});
    values["tags"] = tags;
    return values;
}

// The iterator. Threads of the scan know nothing of Python, so they go on while Python works on what they have found.
class Scan {
public:
    Scan(std::vector<std::string> roots, unsigned threadCount, py::object onError)
        : onError_(std::move(onError)),
          files_(std::in_place, std::move(roots), threadCount, scanBatch,
                 [this](std::string_view folder, std::string_view reason) {
                     unreadable_.push_back({std::string(folder), std::nullopt, std::string(reason)});
                 }) {}
    ~Scan() {
        const py::gil_scoped_release unlocked;
        files_.reset();
    }
    Scan(const Scan&) = delete;
    Scan& operator=(const Scan&) = delete;

    py::dict next() {
        if (fetching_) throw py::value_error("another thread is waiting for the next file of this scan");
        if (ready_.empty()) fetch();
        reportUnreadable();
        if (ready_.empty()) throw py::stop_iteration();
        const ScannedFile file = std::move(ready_.front());
        ready_.pop_front();
        return dictionaryOf(file);
    }

    // Waits for the files that are being read.
    void close() {
        if (fetching_) throw py::value_error("another thread is waiting for the next file of this scan");
        const py::gil_scoped_release unlocked;
        files_.reset();
        ready_.clear();
    }

private:
    // Changes fetching_ with the interpreter locked only.
    class Fetching {
    public:
        explicit Fetching(bool& flag) : flag_(flag) { flag_ = true; }
        ~Fetching() { flag_ = false; }
        Fetching(const Fetching&) = delete;
        Fetching& operator=(const Fetching&) = delete;

    private:
        bool& flag_;
    };

    void fetch() {
        if (!files_) return;
        const Fetching fetching(fetching_);
        const py::gil_scoped_release unlocked;
        if (auto batch = files_->next()) {
            ready_.assign(std::make_move_iterator(batch->begin()), std::make_move_iterator(batch->end()));
        } else {
            files_.reset();
        }
    }

    void reportUnreadable() {
        while (!unreadable_.empty()) {
            const ScannedFile folder = std::move(unreadable_.front());
            unreadable_.pop_front();
            report(folder);
        }
    }

    void report(const ScannedFile& folder) const {
        if (!onError_.is_none()) {
            onError_(FileName{folder.path}, Text{folder.error});
        } else {
            py::module_::import("warnings")
                .attr("warn")(py::str("{}: {}").format(FileName{folder.path}, Text{folder.error}),
                              py::handle(PyExc_RuntimeWarning));
        }
    }

    py::object onError_;
    bool fetching_ = false;
    std::deque<ScannedFile> unreadable_;
    std::deque<ScannedFile> ready_;
    std::optional<scan::FileScan<ScannedBatch>> files_;
};

bool isOnePath(const py::object& paths) {
    return py::isinstance<py::str>(paths) || py::isinstance<py::bytes>(paths) || py::hasattr(paths, "__fspath__");
}

std::vector<std::string> rootsOf(const py::object& paths) {
    if (isOnePath(paths)) return {argumentOf<FileName>(paths).bytes};
    std::vector<std::string> roots;
    for (const py::handle path : paths) roots.push_back(argumentOf<FileName>(path).bytes);
    return roots;
}

unsigned threadCountOf(const py::object& jobs) {
    if (jobs.is_none()) return scan::usualThreadCount();
    if (PyIndex_Check(jobs.ptr()) == 0) throw py::type_error("jobs must be an int or None");
    try {
        return static_cast<unsigned>(wholeNumber(jobs, 1, scan::kMostThreads));
    } catch (const RuntimeFailure&) {
        throw py::value_error("jobs must be 1 to 256");
    }
}

} // namespace

void bindScan(py::module_& corvane) {
    py::class_<Scan>(corvane, "_Scan", "Iterator over the files of a scan.")
        .def("__iter__", [](const py::object& self) { return self; })
        .def("__next__", &Scan::next)
        .def("close", &Scan::close, "Ends the scan: its threads stop after the files that they are reading.");
    corvane.def(
        "scan",
        [](const py::object& paths, const py::object& jobs, py::object onError) {
            expectFunctionOrNone(onError);
            return std::make_unique<Scan>(rootsOf(paths), threadCountOf(jobs), std::move(onError));
        },
        "paths"_a, "jobs"_a = py::none(), py::kw_only(), "onerror"_a = py::none(), kScanDoc);
}

} // namespace corvane::python
