#include "StandardOutput.h"

#include <cerrno>

#include <unistd.h>

namespace kivoconfig {

StandardOutput::int_type StandardOutput::overflow(int_type next) {
    if (sync() != 0) {
        return traits_type::eof();
    }
    return traits_type::eq_int_type(next, traits_type::eof()) ? traits_type::not_eof(next)
                                                              : sputc(traits_type::to_char_type(next));
}

int StandardOutput::sync() {
    char const* position = pbase();
    while (position < pptr() && mFault == 0) {
        auto const written = ::write(STDOUT_FILENO, position, static_cast<std::size_t>(pptr() - position));
        if (written >= 0) {
            position += written;
        } else if (errno != EINTR) {
            mFault = errno;
        }
    }
    setp(mBuffer.data(), mBuffer.data() + mBuffer.size());
    return mFault == 0 ? 0 : -1;
}

} // namespace kivoconfig
