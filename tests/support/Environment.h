// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <utility>

/// An environment variable that has another value as long as the object lives.
class Environment {
public:
    Environment(const char* name, const QByteArray& value)
        : m_name(name)
        , m_wasSet(qEnvironmentVariableIsSet(name))
        , m_before(qgetenv(name)) {
        qputenv(name, value);
    }

    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    Environment(Environment&&) = delete;
    Environment& operator=(Environment&&) = delete;

    ~Environment() {
        if (m_wasSet) {
            qputenv(m_name, m_before);
        } else {
            qunsetenv(m_name);
        }
    }

private:
    const char* m_name;
    bool m_wasSet;
    QByteArray m_before;
};
