// Python.h wants to be the first header.
#include <Python.h>

#include <utility>
#include <vector>

#include "columns/rivals.h"
#include "support/demand.h"

namespace bench {
namespace {

// What a user of numpy writes: a structured array without gaps, and whole-column copies.
constexpr char kProgram[] = R"(
import numpy

sounding = numpy.dtype([("id", "<i4"), ("x", "<f8"), ("y", "<f8"), ("z", "<f8"),
                        ("depth", "<f4"), ("flags", "<i2"), ("kind", "u1")])

def table(memory):
    return numpy.frombuffer(memory, dtype=sounding)

def numbers(memory, kind):
    return numpy.frombuffer(memory, dtype=kind)

def take(table, member, numbers):
    numpy.copyto(numbers, table[member])

def put(table, member, numbers):
    numpy.copyto(table[member], numbers, casting="same_kind")
)";

// The owner of a Python object. Fails with a word where Python answered none.
class Object {
 public:
  Object() = default;
  explicit Object(PyObject* object) : object_(object) {
    if (object_ == nullptr) {
      PyErr_Print();
      Fail("Python refuses a call");
    }
  }
  Object(Object&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Object& operator=(Object&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Object() { Py_XDECREF(object_); }

  PyObject* get() const { return object_; }

 private:
  PyObject* object_ = nullptr;
};

Object Text(const char* text) { return Object(PyUnicode_FromString(text)); }

// The functions of the program, in an interpreter that lives until the process ends.
class Program {
 public:
  Program() {
    Py_InitializeEx(0);
    globals_ = Object(PyDict_New());
    PyDict_SetItemString(globals_.get(), "__builtins__", PyEval_GetBuiltins());
    const Object ignored(PyRun_String(kProgram, Py_file_input, globals_.get(), globals_.get()));
  }

  PyObject* Function(const char* name) const {
    PyObject* const function = PyDict_GetItemString(globals_.get(), name);
    Demand(function != nullptr, "the program lacks a function");
    return function;
  }

 private:
  Object globals_;
};

const Program& TheProgram() {
  static const Program* const program = new Program;  // Python may not be ended before its objects are
  return *program;
}

class NumpyColumns final : public ColumnTable {
 public:
  void Fill(std::int32_t count) override {
    for (std::int32_t i = 0; i < count; ++i) soundings_.push_back(SoundingAt(i));
    const Object memory(MemoryOf(soundings_.data(), soundings_.size() * sizeof(Sounding)));
    table_ = Object(PyObject_CallFunctionObjArgs(TheProgram().Function("table"), memory.get(), nullptr));
  }

  void DepthToReals(double* numbers) override { Move(take_, depth_, "f8", numbers); }
  void XToReals(double* numbers) override { Move(take_, x_, "f8", numbers); }
  void FlagsToLongs(std::int32_t* numbers) override { Move(take_, flags_, "i4", numbers); }
  void RealsToDepth(const double* numbers) override {
    Move(put_, depth_, "f8", const_cast<double*>(numbers));
  }

 private:
  static Object MemoryOf(void* memory, std::size_t size) {
    return Object(
        PyMemoryView_FromMemory(static_cast<char*>(memory), static_cast<Py_ssize_t>(size), PyBUF_WRITE));
  }

  template <class T>
  void Move(PyObject* function, const Object& member, const char* kind, T* numbers) {
    UseBlock(numbers, soundings_.size() * sizeof(T), kind);
    const Object ignored(
        PyObject_CallFunctionObjArgs(function, table_.get(), member.get(), block_.get(), nullptr));
  }

  // A user has the block as an array of numpy already, so it is made once for each block.
  void UseBlock(void* numbers, std::size_t size, const char* kind) {
    if (numbers == block_address_) return;
    const Object memory(MemoryOf(numbers, size));
    block_ = Object(PyObject_CallFunctionObjArgs(TheProgram().Function("numbers"), memory.get(),
                                                 Text(kind).get(), nullptr));
    block_address_ = numbers;
  }

  std::vector<Sounding> soundings_;
  PyObject* const take_ = TheProgram().Function("take");
  PyObject* const put_ = TheProgram().Function("put");
  const Object depth_ = Text("depth");
  const Object x_ = Text("x");
  const Object flags_ = Text("flags");
  Object table_;
  Object block_;
  const void* block_address_ = nullptr;
};

}  // namespace

std::unique_ptr<ColumnTable> MakeNumpyColumns() { return std::make_unique<NumpyColumns>(); }

}  // namespace bench
