#include "campionati/aggiornamentocalendari.h"

#include "campionati/filecampionati.h"
#include "core/statoprogramma.h"
#include "piattaforma/filedati.h"
#include "piattaforma/rete.h"
#include "piattaforma/scaricamentofile.h"

using namespace Qt::StringLiterals;

AggiornamentoCalendari::AggiornamentoCalendari(StatoProgramma &stato)
    : m_stato(stato) {
    for (const Leghe::Lega &lega : Leghe::italiane())
        m_riepilogo.prevedi({QString::fromLatin1(lega.nome)});
}

QString AggiornamentoCalendari::pagina(const Leghe::Lega &lega) {
    return u"/vespara/"_s + QString::fromLatin1(lega.calendario) + u".html"_s;
}

QString AggiornamentoCalendari::scarica(const Leghe::Lega &lega) {
    return ScaricamentoFile::pagina(m_stato.rete(), pagina(lega));
}

bool AggiornamentoCalendari::secondaDivisioneDisponibile() {
    bool tutte = true;
    for (const char *codice : {"C2A", "C2B", "C2C"})
        tutte = !scarica(*Leghe::perCodice(QString::fromLatin1(codice))).isEmpty() && tutte;
    return tutte;
}

void AggiornamentoCalendari::aggiorna(const std::function<void(int)> &avanzamento) {
    int fatte = 0;
    for (const Leghe::Lega &lega : Leghe::italiane()) {
        QStringList righe = Rete::righe(scarica(lega));
        // The line end of the last line opens no string.
        if (!righe.isEmpty() && righe.last().isEmpty())
            righe.removeLast();
        ScaricamentoFile::controllaInterruzione(m_stato.rete());
        FileDati::scriviRighe(m_stato.percorsoFile(Leghe::fileCalendarioTesto(lega)), righe);
        FileCampionati::ricreaCalendario(m_stato.PercorsoDati, lega);
        m_riepilogo.fatto(QString::fromLatin1(lega.nome));
        if (avanzamento)
            avanzamento(++fatte);
    }
}
