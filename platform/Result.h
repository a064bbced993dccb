// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace platform {

/// What went wrong when the world did not do what was asked. Few kinds are enough: a caller decides
/// by the kind and logs the text.
struct Error
{
    enum class Kind {
        Unavailable, ///< this desktop does not offer the service at all
        Taken,       ///< somebody else holds what was asked for
        NotFound,    ///< what was named does not exist (any more)
        TimedOut,    ///< no answer within the deadline
        Refused,     ///< the other side answered with an error
        Io,          ///< a file could not be read or written
    };

    Kind kind;
    QString
        text; ///< what was tried, on what, and what the system said; for the log, not translated
};

/// The value, or why there is none.
template <typename T>
using Result = tl::expected<T, Error>;

inline tl::unexpected<Error> failure(Error::Kind kind, const QString &text)
{
    return tl::unexpected<Error>(Error{kind, text});
}

} // namespace platform
