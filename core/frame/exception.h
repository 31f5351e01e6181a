#pragma once

#include "core/frame/export.h"

#include <QString>

#include <exception>
#include <string>

namespace OMC {

/// The one failure that leaves a call of the object model: a readable sentence, and nothing else.
class BRINDLE_CORE_EXPORT Exception : public std::exception {
public:
    explicit Exception(std::string message) : m_message(std::move(message)) {}
    explicit Exception(const QString& message) : m_message(message.toStdString()) {}

    const char* what() const noexcept override { return m_message.c_str(); }
    /// The same, also behind a null character, which a name in the sentence may have.
    const std::string& message() const noexcept { return m_message; }

private:
    std::string m_message;
};

} // namespace OMC
