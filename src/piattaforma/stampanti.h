#pragma once

#include <QStringList>

#include <functional>
#include <optional>

// The printers installed on the system, by name, in the order the system lists them. The list
// comes from the function the frame installs (the print support of the platform); tests set a
// list of their own, so that any number of printers can be tried on any machine.
class Stampanti {
public:
    using Elenco = std::function<QStringList()>;

    QStringList nomi() const;
    void setElenco(Elenco elenco) { m_elenco = std::move(elenco); }
    void imposta(QStringList nomi) { m_fisse = std::move(nomi); }

private:
    Elenco m_elenco;
    std::optional<QStringList> m_fisse;
};
