#include "corvane/selftest/TestFixture.h"

#include "python/Binding.h"
#include "python/Bindings.h"

namespace corvane::python {

namespace {

// A test manager written in Python: any object with these two methods.
class PythonManager final : public ITestManager {
public:
    explicit PythonManager(py::object manager) : manager_(std::move(manager)) {}
    ~PythonManager() override {
        const py::gil_scoped_acquire locked;
        manager_.release().dec_ref();
    }
    PythonManager(const PythonManager&) = delete;
    PythonManager& operator=(const PythonManager&) = delete;

    bool CheckCondition(bool Condition, const std::string& Message) override {
        const py::gil_scoped_acquire locked;
        const py::object result = manager_.attr("CheckCondition")(Condition, Text{Message});
        const int passed = PyObject_IsTrue(result.ptr());
        if (passed < 0) throw py::error_already_set();
        return passed == 1;
    }
    void StartStep(const std::string& step) override {
        const py::gil_scoped_acquire locked;
        manager_.attr("StartStep")(Text{step});
    }

private:
    py::object manager_;
};

// The class that a test manager may be derived from.
struct ManagerBase {};

[[noreturn]] void refuse() {
    PyErr_SetString(PyExc_NotImplementedError, "a test manager defines CheckCondition and StartStep");
    throw py::error_already_set();
}

void bindManager(py::module_& corvane) {
    py::class_<ManagerBase>(corvane, "ITestManager",
                            "The manager that runs fixtures and keeps their results; a host brings its own. Any object "
                            "with these two methods is one.")
        .def(py::init<>())
        .def(
            "CheckCondition", [](const ManagerBase&, bool, const Text&) -> bool { refuse(); }, "Condition"_a,
            "Message"_a, "Records one check. Condition True: it passed; Message describes the failure.")
        .def(
            "StartStep", [](const ManagerBase&, const Text&) { refuse(); }, "Text"_a, "Announces the next step.");
}

} // namespace

void bindTestFixture(py::module_& corvane) {
    bindManager(corvane);
    using Fixture = ITestFixture;
    Class<Fixture>(corvane, "ITestFixture", "What a test manager knows of a test fixture.")
        .def(
            "Setup",
            [](Fixture& fixture, py::object manager, const FileName& project) {
                fixture.Setup(std::make_shared<PythonManager>(std::move(manager)), project.bytes);
            },
            "manager"_a, "vbpPath"_a, "Takes the manager and the path of the host's project.")
        .def(
            "RunTest", &Fixture::RunTest, FileWork(),
            "Runs all steps. Failures are reported to the manager and never raised to it. Raises Error (91) without a "
            "manager, and whatever the manager itself raises. A manager may call TearDown meanwhile: the run then ends "
            "without another report.")
        .def("TearDown", &Fixture::TearDown, "Releases the manager.")
        .def_property_readonly(
            "Name", [](const Fixture& fixture) { return Text{fixture.Name()}; }, "The name of the test.")
        .def_property_readonly("ContinueAfterError", &Fixture::ContinueAfterError,
                               "Whether the manager shall go on with the next step after a failed check.");
    py::class_<TestFixture, Fixture, std::shared_ptr<TestFixture>>(
        corvane, "TestFixture",
        "Writes an ID3v1.1 tag into the scratch file MP3Tst00.mp3 in the current folder, reads it back and compares "
        "every field, then does so again on the same file. The file stays there.")
        .def(py::init<>());
}

} // namespace corvane::python
