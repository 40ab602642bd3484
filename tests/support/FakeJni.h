#pragma once

#include <jni.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace test {

/// A Java environment without a Java virtual machine, for tests of native code.
///
/// It has strings, arrays of strings, classes and one pending exception, and is as strict as a
/// checking virtual machine: it ends the program with a message that names the call where native
/// code
///  - makes a call that is not allowed while an exception is pending,
///  - hands over text that is not modified UTF-8, a null, a deleted or a wrong kind of reference,
///  - asks for characters that are not in the string,
///  - calls from another thread than the one that made this object,
///  - makes a call that is not made up here (the message has its slot in the function table).
///
/// Text is modified UTF-8 throughout, in and out.
class FakeJni {
public:
    /// The calls that can be made to fail.
    enum class Call { FindClass, NewStringUTF, NewObjectArray };

    struct Exception {
        std::string className; ///< such as "java/lang/RuntimeException"
        std::string message;
    };

    /// One entry an element; an element that is null in Java has no value.
    using Elements = std::vector<std::optional<std::string>>;

    FakeJni();
    ~FakeJni();
    FakeJni(const FakeJni&) = delete;
    FakeJni& operator=(const FakeJni&) = delete;

    /// What native code gets as its first argument; valid as long as this object.
    JNIEnv* environment() const;

    /// A string as the Java side passes one in. It does not count as made by native code.
    jstring javaString(const std::string& text);

    std::string textOf(jobject string) const;
    Elements elementsOf(jobject array) const;

    /// The name of the class that an array was made for.
    std::string elementClassOf(jobject array) const;

    /// How many references native code holds: all that were made and not deleted.
    std::size_t liveReferences() const;

    /// The pending exception, or no value.
    std::optional<Exception> pendingException() const;

    /// Makes an exception pending, in place of an earlier one.
    void raise(const std::string& className, const std::string& message);

    /// Takes the pending exception away, as Java does when it catches it.
    void catchException();

    /// The texts of all NewStringUTF() calls that succeeded, in order.
    const std::vector<std::string>& stringsMade() const;

    /// Runs this whenever NewStringUTF() is called, on the calling thread, before the string is made.
    void atEveryString(std::function<void()> action);

    /// Makes one call fail the way a virtual machine without memory does: it returns null, and leaves
    /// an exception pending (NoClassDefFoundError for FindClass(), else OutOfMemoryError).
    /// @param successes  how many calls of this kind still succeed before
    void failCall(Call call, int successes = 0);

    struct Machine; // what is behind the environment; of no use to tests

private:
    std::unique_ptr<Machine> m_machine;
};

} // namespace test
