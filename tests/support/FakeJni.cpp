#include "support/FakeJni.h"

#include "support/ModifiedUtf8.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <map>
#include <thread>
#include <utility>

namespace test {
namespace {

enum class Kind { Class, String, Array, Throwable };

const char* nameOf(Kind kind) {
    constexpr const char* NAMES[] = {"class", "string", "array", "throwable"};
    return NAMES[static_cast<int>(kind)];
}

/// What a reference points to. It lives as long as the machine, so that the use of a stale reference is found.
struct Object {
    Kind kind;
    std::string text; ///< name of a class (also of an array's and a throwable's), text of a string
    std::vector<Object*> elements;
    int references = 1;
};

[[noreturn]] void die(const char* call, const char* reason) {
    std::fprintf(stderr, "FakeJni: %s: %s\n", call, reason);
    std::abort();
}

bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

jsize charactersOf(const std::string& text) {
    return static_cast<jsize>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

std::size_t offsetOf(const std::string& text, jsize character) {
    std::size_t offset = 0;
    for (; offset < text.size(); ++offset) {
        if (beginsCharacter(text[offset]) && character-- == 0)
            break;
    }
    return offset;
}

template <class Reference>
Reference referenceTo(Object* object) {
    if (object)
        ++object->references;
    return reinterpret_cast<Reference>(object);
}

} // namespace

struct FakeJni::Machine : JNIEnv_ {
    Machine();

    Object& make(Kind kind, const std::string& text);
    Object& resolve(const char* call, jobject reference, Kind kind);
    Object* resolveOrNull(const char* call, jobject reference, Kind kind);
    Object* findObject(jobject reference);
    bool fails(Call call);
    void raise(const std::string& className, const std::string& message);

    std::deque<Object> objects;
    std::map<Call, int> successesBeforeFailure;
    std::optional<Exception> pending;
    std::vector<std::string> stringsMade;
    std::function<void()> atEveryString;
    const std::thread::id thread = std::this_thread::get_id();

    // The calls, as the function table holds them.
    static Machine& enter(JNIEnv* environment, const char* call);
    static Machine& enterWithoutPending(JNIEnv* environment, const char* call);
    static jclass JNICALL findClass(JNIEnv*, const char* name);
    static jint JNICALL throwNew(JNIEnv*, jclass, const char* message);
    static jthrowable JNICALL exceptionOccurred(JNIEnv*);
    static void JNICALL exceptionClear(JNIEnv*);
    static jboolean JNICALL exceptionCheck(JNIEnv*);
    static void JNICALL deleteLocalRef(JNIEnv*, jobject);
    static jstring JNICALL newStringUtf(JNIEnv*, const char* text);
    static jsize JNICALL getStringLength(JNIEnv*, jstring);
    static void JNICALL getStringUtfRegion(JNIEnv*, jstring, jsize start, jsize length, char* out);
    static jsize JNICALL getArrayLength(JNIEnv*, jarray);
    static jobjectArray JNICALL newObjectArray(JNIEnv*, jsize, jclass, jobject initial);
    static jobject JNICALL getObjectArrayElement(JNIEnv*, jobjectArray, jsize);
    static void JNICALL setObjectArrayElement(JNIEnv*, jobjectArray, jsize, jobject);
    static bool checkIndex(Machine& machine, const Object& array, jsize index);
    static JNINativeInterface_ makeTable();
};

using Machine = FakeJni::Machine;

// The function table -----------------------------------------------------------------------------

namespace {

using Slot = void (*)();
constexpr std::size_t SLOTS = sizeof(JNINativeInterface_) / sizeof(Slot);

template <std::size_t NUMBER>
void notMadeUp() {
    const std::string slot = "slot " + std::to_string(NUMBER) + " of JNINativeInterface_ (jni.h)";
    die(slot.c_str(), "this call is not made up");
}

template <std::size_t... NUMBERS>
std::array<Slot, SLOTS> slotsNotMadeUp(std::index_sequence<NUMBERS...>) {
    return {notMadeUp<NUMBERS>...};
}

} // namespace

JNINativeInterface_ Machine::makeTable() {
    JNINativeInterface_ table;
    const auto slots = slotsNotMadeUp(std::make_index_sequence<SLOTS>());
    static_assert(sizeof(table) == sizeof(slots));
    std::memcpy(static_cast<void*>(&table), slots.data(), sizeof(table));
    table.FindClass = findClass;
    table.ThrowNew = throwNew;
    table.ExceptionOccurred = exceptionOccurred;
    table.ExceptionClear = exceptionClear;
    table.ExceptionCheck = exceptionCheck;
    table.DeleteLocalRef = deleteLocalRef;
    table.NewStringUTF = newStringUtf;
    table.GetStringLength = getStringLength;
    table.GetStringUTFRegion = getStringUtfRegion;
    table.GetArrayLength = getArrayLength;
    table.NewObjectArray = newObjectArray;
    table.GetObjectArrayElement = getObjectArrayElement;
    table.SetObjectArrayElement = setObjectArrayElement;
    return table;
}

// What the calls share ---------------------------------------------------------------------------

Machine::Machine() {
    static const JNINativeInterface_ table = makeTable();
    functions = &table;
}

Machine& Machine::enter(JNIEnv* environment, const char* call) {
    if (!environment)
        die(call, "null environment");
    auto& machine = *static_cast<Machine*>(environment);
    if (machine.thread != std::this_thread::get_id())
        die(call, "the environment belongs to another thread");
    return machine;
}

Machine& Machine::enterWithoutPending(JNIEnv* environment, const char* call) {
    Machine& machine = enter(environment, call);
    if (machine.pending)
        die(call, ("not allowed while " + machine.pending->className + " is pending").c_str());
    return machine;
}

Object& Machine::make(Kind kind, const std::string& text) {
    return objects.emplace_back(Object{kind, text, {}});
}

Object* Machine::findObject(jobject reference) {
    for (Object& object : objects) {
        if (static_cast<void*>(&object) == static_cast<void*>(reference))
            return &object;
    }
    return nullptr;
}

Object& Machine::resolve(const char* call, jobject reference, Kind kind) {
    if (!reference)
        die(call, "null reference");
    Object* object = findObject(reference);
    if (!object)
        die(call, "no reference of this environment");
    if (object->references <= 0)
        die(call, "the reference has been deleted");
    if (object->kind != kind)
        die(call, (std::string("wrong kind of reference: ") + nameOf(object->kind)).c_str());
    return *object;
}

Object* Machine::resolveOrNull(const char* call, jobject reference, Kind kind) {
    return reference ? &resolve(call, reference, kind) : nullptr;
}

bool Machine::fails(Call call) {
    const auto found = successesBeforeFailure.find(call);
    if (found == successesBeforeFailure.end())
        return false;
    if (found->second-- > 0)
        return false;
    successesBeforeFailure.erase(found);
    return true;
}

void Machine::raise(const std::string& className, const std::string& message) {
    pending = Exception{className, message};
}

// Classes and exceptions -------------------------------------------------------------------------

jclass Machine::findClass(JNIEnv* environment, const char* name) {
    Machine& machine = enterWithoutPending(environment, "FindClass");
    if (!name)
        die("FindClass", "null name");
    const bool known = std::strncmp(name, "java/lang/", 10) == 0;
    if (!known || machine.fails(Call::FindClass)) {
        machine.raise("java/lang/NoClassDefFoundError", name);
        return nullptr;
    }
    return reinterpret_cast<jclass>(&machine.make(Kind::Class, name));
}

jint Machine::throwNew(JNIEnv* environment, jclass type, const char* message) {
    Machine& machine = enterWithoutPending(environment, "ThrowNew");
    if (message && !isModifiedUtf8(message))
        die("ThrowNew", "the message is not modified UTF-8");
    machine.raise(machine.resolve("ThrowNew", type, Kind::Class).text, message ? message : "");
    return JNI_OK;
}

jthrowable Machine::exceptionOccurred(JNIEnv* environment) {
    Machine& machine = enter(environment, "ExceptionOccurred");
    if (!machine.pending)
        return nullptr;
    return reinterpret_cast<jthrowable>(&machine.make(Kind::Throwable, machine.pending->className));
}

void Machine::exceptionClear(JNIEnv* environment) {
    enter(environment, "ExceptionClear").pending.reset();
}

jboolean Machine::exceptionCheck(JNIEnv* environment) {
    return enter(environment, "ExceptionCheck").pending ? JNI_TRUE : JNI_FALSE;
}

void Machine::deleteLocalRef(JNIEnv* environment, jobject reference) {
    Machine& machine = enter(environment, "DeleteLocalRef");
    if (!reference)
        return;
    Object* object = machine.findObject(reference);
    if (!object || object->references <= 0)
        die("DeleteLocalRef", "no live reference of this environment");
    --object->references;
}

// Strings ----------------------------------------------------------------------------------------

jstring Machine::newStringUtf(JNIEnv* environment, const char* text) {
    Machine& machine = enterWithoutPending(environment, "NewStringUTF");
    if (!text)
        return nullptr;
    if (!isModifiedUtf8(text))
        die("NewStringUTF", "the text is not modified UTF-8");
    if (machine.atEveryString)
        machine.atEveryString();
    if (machine.fails(Call::NewStringUTF)) {
        machine.raise("java/lang/OutOfMemoryError", "NewStringUTF");
        return nullptr;
    }
    machine.stringsMade.emplace_back(text);
    return reinterpret_cast<jstring>(&machine.make(Kind::String, text));
}

jsize Machine::getStringLength(JNIEnv* environment, jstring string) {
    Machine& machine = enterWithoutPending(environment, "GetStringLength");
    return charactersOf(machine.resolve("GetStringLength", string, Kind::String).text);
}

// Writes no NUL, which JNI does not promise.
void Machine::getStringUtfRegion(JNIEnv* environment, jstring string, jsize start, jsize length,
                                 char* out) {
    Machine& machine = enterWithoutPending(environment, "GetStringUTFRegion");
    const std::string& text = machine.resolve("GetStringUTFRegion", string, Kind::String).text;
    if (start < 0 || length < 0 || start > charactersOf(text) - length)
        die("GetStringUTFRegion", "the string has no such characters");
    const std::size_t begin = offsetOf(text, start);
    text.copy(out, offsetOf(text, start + length) - begin, begin);
}

// Arrays -----------------------------------------------------------------------------------------

jsize Machine::getArrayLength(JNIEnv* environment, jarray array) {
    Machine& machine = enterWithoutPending(environment, "GetArrayLength");
    const Object& object = machine.resolve("GetArrayLength", array, Kind::Array);
    return static_cast<jsize>(object.elements.size());
}

jobjectArray Machine::newObjectArray(JNIEnv* environment, jsize length, jclass type,
                                     jobject initial) {
    Machine& machine = enterWithoutPending(environment, "NewObjectArray");
    const std::string& name = machine.resolve("NewObjectArray", type, Kind::Class).text;
    Object* element = machine.resolveOrNull("NewObjectArray", initial, Kind::String);
    if (length < 0) {
        machine.raise("java/lang/NegativeArraySizeException", std::to_string(length));
        return nullptr;
    }
    if (machine.fails(Call::NewObjectArray)) {
        machine.raise("java/lang/OutOfMemoryError", "NewObjectArray");
        return nullptr;
    }
    Object& array = machine.make(Kind::Array, name);
    array.elements.assign(static_cast<std::size_t>(length), element);
    return reinterpret_cast<jobjectArray>(&array);
}

bool Machine::checkIndex(Machine& machine, const Object& array, jsize index) {
    if (index >= 0 && static_cast<std::size_t>(index) < array.elements.size())
        return true;
    machine.raise("java/lang/ArrayIndexOutOfBoundsException", std::to_string(index));
    return false;
}

jobject Machine::getObjectArrayElement(JNIEnv* environment, jobjectArray array, jsize index) {
    Machine& machine = enterWithoutPending(environment, "GetObjectArrayElement");
    const Object& object = machine.resolve("GetObjectArrayElement", array, Kind::Array);
    if (!checkIndex(machine, object, index))
        return nullptr;
    return referenceTo<jobject>(object.elements[static_cast<std::size_t>(index)]);
}

void Machine::setObjectArrayElement(JNIEnv* environment, jobjectArray array, jsize index,
                                    jobject value) {
    Machine& machine = enterWithoutPending(environment, "SetObjectArrayElement");
    Object& object = machine.resolve("SetObjectArrayElement", array, Kind::Array);
    Object* element = machine.resolveOrNull("SetObjectArrayElement", value, Kind::String);
    if (checkIndex(machine, object, index))
        object.elements[static_cast<std::size_t>(index)] = element;
}

// What a test sees -------------------------------------------------------------------------------

FakeJni::FakeJni() : m_machine(std::make_unique<Machine>()) {}

FakeJni::~FakeJni() = default;

JNIEnv* FakeJni::environment() const {
    return m_machine.get();
}

jstring FakeJni::javaString(const std::string& text) {
    if (!isModifiedUtf8(text))
        die("javaString", "the text is not modified UTF-8");
    return reinterpret_cast<jstring>(&m_machine->make(Kind::String, text));
}

std::string FakeJni::textOf(jobject string) const {
    return m_machine->resolve("textOf", string, Kind::String).text;
}

FakeJni::Elements FakeJni::elementsOf(jobject array) const {
    Elements elements;
    for (const Object* element : m_machine->resolve("elementsOf", array, Kind::Array).elements)
        elements.push_back(element ? std::optional<std::string>(element->text) : std::nullopt);
    return elements;
}

std::string FakeJni::elementClassOf(jobject array) const {
    return m_machine->resolve("elementClassOf", array, Kind::Array).text;
}

std::size_t FakeJni::liveReferences() const {
    std::size_t count = 0;
    for (const Object& object : m_machine->objects)
        count += static_cast<std::size_t>(object.references);
    return count;
}

std::optional<FakeJni::Exception> FakeJni::pendingException() const {
    return m_machine->pending;
}

void FakeJni::raise(const std::string& className, const std::string& message) {
    m_machine->raise(className, message);
}

void FakeJni::catchException() {
    m_machine->pending.reset();
}

const std::vector<std::string>& FakeJni::stringsMade() const {
    return m_machine->stringsMade;
}

void FakeJni::atEveryString(std::function<void()> action) {
    m_machine->atEveryString = std::move(action);
}

void FakeJni::failCall(Call call, int successes) {
    m_machine->successesBeforeFailure[call] = successes;
}

} // namespace test
