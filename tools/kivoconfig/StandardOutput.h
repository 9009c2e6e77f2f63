#pragma once

#include <array>
#include <streambuf>

namespace kivoconfig {

/// Writes to standard output and remembers why it cannot. A closed pipe, which standard streams tell no apart from a
/// full disk, is no fault: the reader has seen enough.
class StandardOutput final : public std::streambuf {
public:
    StandardOutput() { setp(mBuffer.data(), mBuffer.data() + mBuffer.size()); }

    /// The system's number of the fault that kept something from being written; 0: there was none.
    int getFault() const { return mFault; }

private:
    int_type overflow(int_type next) override;
    int sync() override;

    std::array<char, 16384> mBuffer;
    int mFault = 0;
};

} // namespace kivoconfig
