#pragma once

#include <QString>

#include <exception>

// A run-time fault: something the design leaves unchecked went wrong (a short file, a line with
// too few fields, a table beyond its capacity). It is raised where the fault happens and caught by
// the guard around each event, which shows it in a critical box and leaves the data as it was.
// An interruption is the same fault without a box: the user cancelled the operation, or the
// program is closing. It unwinds the operation before anything more is written.
class ErroreEsecuzione : public std::exception {
public:
    explicit ErroreEsecuzione(QString testo)
        : m_testo(std::move(testo))
        , m_utf8(m_testo.toUtf8()) {}

    static ErroreEsecuzione interruzione() {
        ErroreEsecuzione e(QStringLiteral("Operazione annullata."));
        e.m_silenzioso = true;
        return e;
    }
    bool silenzioso() const noexcept { return m_silenzioso; }

    const QString &testo() const noexcept { return m_testo; }
    const char *what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_testo;
    QByteArray m_utf8;
    bool m_silenzioso = false;
};
