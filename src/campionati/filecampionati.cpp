#include "campionati/filecampionati.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"

#include <QFile>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

QString nome(const Leghe::Lega &lega) {
    return QString::fromLatin1(lega.nome);
}

void verificaItaliana(const Leghe::Lega &lega) {
    if (!lega.calendario || lega.giornate <= 0 || lega.stringheGiornata <= 0)
        throw ErroreEsecuzione(u"Il campionato %1 non ha un calendario."_s.arg(nome(lega)));
}

FileCampionati::Calendario calendarioVuoto(const Leghe::Lega &lega) {
    return FileCampionati::Calendario(lega.giornate, QStringList(lega.stringheGiornata));
}

} // namespace

FileCampionati::Classifica FileCampionati::classificaDaRighe(const QStringList &righe,
                                                             int numeroRighe) {
    Classifica c;
    c.intestazione = righe.value(0);
    if (righe.size() < numeroRighe + 1)
        throw ErroreEsecuzione(u"La classifica ha %1 righe di squadre: ne servono %2."_s
                                   .arg(std::max<qsizetype>(righe.size() - 1, 0))
                                   .arg(numeroRighe));
    c.righe.reserve(numeroRighe);
    for (int r = 1; r <= numeroRighe; ++r) {
        const QStringList campi = righe.at(r).split(u'\t');
        if (campi.size() < CampiRiga)
            throw ErroreEsecuzione(
                u"La riga %1 della classifica ha %2 campi: ne servono %3."_s.arg(r + 1)
                    .arg(campi.size())
                    .arg(CampiRiga));
        RigaClassifica riga;
        for (int k = 0; k < CampiRiga; ++k)
            riga[k] = campi.at(k);
        c.righe.append(riga);
    }
    return c;
}

QStringList FileCampionati::righeDaClassifica(const Classifica &classifica) {
    QStringList righe{classifica.intestazione};
    for (const RigaClassifica &riga : classifica.righe)
        righe.append(QStringList(riga.begin(), riga.end()).join(u'\t'));
    return righe;
}

FileCampionati::Classifica FileCampionati::leggiClassifica(const QString &cartella,
                                                           const Leghe::Lega &lega) {
    const QString file = FileDati::percorso(cartella, Leghe::fileClassifica(lega));
    try {
        return classificaDaRighe(FileDati::leggiRighe(file), lega.righeClassifica);
    } catch (const ErroreEsecuzione &e) {
        if (e.silenzioso())
            throw;
        throw ErroreEsecuzione(Leghe::fileClassifica(lega) + u": "_s + e.testo());
    }
}

void FileCampionati::scriviClassifica(const QString &cartella, const Leghe::Lega &lega,
                                      const Classifica &classifica) {
    if (classifica.righe.size() > lega.righeClassifica)
        throw ErroreEsecuzione(u"La classifica %1 ha %2 righe: ne può tenere %3."_s.arg(nome(lega))
                                   .arg(classifica.righe.size())
                                   .arg(lega.righeClassifica));
    FileDati::scriviRighe(FileDati::percorso(cartella, Leghe::fileClassifica(lega)),
                          righeDaClassifica(classifica));
}

void FileCampionati::scriviSquadreItaliane(const QString &cartella, const Leghe::Lega &lega,
                                           const QStringList &nomi) {
    QStringList righe;
    for (const QString &n : nomi)
        if (!n.isEmpty())
            righe.append(n);
    if (righe.size() > MassimoSquadreItaliane)
        throw ErroreEsecuzione(
            u"L'elenco delle squadre di %1 ha %2 nomi: ne può tenere %3."_s.arg(nome(lega))
                .arg(righe.size())
                .arg(MassimoSquadreItaliane));
    FileDati::scriviRighe(FileDati::percorso(cartella, Leghe::fileSquadre(lega)), righe);
}

void FileCampionati::scriviSquadreStraniere(const QString &cartella, const Leghe::Lega &lega,
                                            const QStringList &nomi) {
    if (nomi.size() > lega.righeClassifica)
        throw ErroreEsecuzione(
            u"L'elenco delle squadre di %1 ha %2 nomi: ne può tenere %3."_s.arg(nome(lega))
                .arg(nomi.size())
                .arg(lega.righeClassifica));
    QStringList righe;
    for (int i = 0; i < lega.righeClassifica; ++i)
        righe.append(nomi.value(i).toUpper());
    FileDati::scriviRighe(FileDati::percorso(cartella, Leghe::fileSquadre(lega)), righe);
}

FileCampionati::Calendario FileCampionati::calendarioDaTesto(const QStringList &righe,
                                                             const Leghe::Lega &lega) {
    verificaItaliana(lega);
    Calendario calendario = calendarioVuoto(lega);
    int giornata = 0;
    int stringa = 0;
    bool nuova = true;
    for (const QString &riga : righe) {
        if (riga == u"*"_s) {
            nuova = true;
            stringa = 0;
            continue;
        }
        if (nuova) {
            ++giornata;
            nuova = false;
        }
        ++stringa;
        if (giornata > lega.giornate)
            throw ErroreEsecuzione(
                u"Il calendario di %1 ha più di %2 giornate."_s.arg(nome(lega)).arg(lega.giornate));
        if (stringa > lega.stringheGiornata)
            throw ErroreEsecuzione(
                u"La giornata %1 del calendario di %2 ha più di %3 righe."_s.arg(giornata)
                    .arg(nome(lega))
                    .arg(lega.stringheGiornata));
        calendario[giornata - 1][stringa - 1] = riga.trimmed();
    }
    return calendario;
}

QByteArray FileCampionati::codificaCalendario(const Calendario &calendario) {
    QByteArray byte;
    for (const QStringList &giornata : calendario)
        for (const QString &stringa : giornata) {
            const QByteArray testo = FileDati::codifica(stringa);
            if (testo.size() > 0xFFFF)
                throw ErroreEsecuzione(u"Una riga del calendario è troppo lunga."_s);
            char lunghezza[2];
            qToLittleEndian<quint16>(quint16(testo.size()), lunghezza);
            byte.append(lunghezza, 2);
            byte.append(testo);
        }
    return byte;
}

FileCampionati::Calendario FileCampionati::decodificaCalendario(QByteArrayView byte,
                                                                const Leghe::Lega &lega,
                                                                bool finoAllaFine) {
    verificaItaliana(lega);
    Calendario calendario = calendarioVuoto(lega);
    qsizetype posizione = 0;
    const auto corto = [&lega] {
        return ErroreEsecuzione(u"Il file %1 è troppo corto per le %2 giornate del calendario."_s
                                    .arg(Leghe::fileCalendarioDati(lega))
                                    .arg(lega.giornate));
    };
    for (QStringList &giornata : calendario)
        for (QString &stringa : giornata) {
            if (byte.size() - posizione < 2) {
                if (finoAllaFine)
                    return calendario;
                throw corto();
            }
            const quint16 lunghezza = qFromLittleEndian<quint16>(byte.data() + posizione);
            posizione += 2;
            if (byte.size() - posizione < lunghezza) {
                if (finoAllaFine)
                    return calendario;
                throw corto();
            }
            stringa = FileDati::decodifica(byte.sliced(posizione, lunghezza));
            posizione += lunghezza;
        }
    return calendario;
}

FileCampionati::Calendario FileCampionati::ricreaCalendario(const QString &cartella,
                                                            const Leghe::Lega &lega) {
    verificaItaliana(lega);
    const Calendario calendario = calendarioDaTesto(
        FileDati::leggiRighe(FileDati::percorso(cartella, Leghe::fileCalendarioTesto(lega))), lega);
    QByteArray byte = codificaCalendario(calendario);
    const QString percorso = FileDati::percorso(cartella, Leghe::fileCalendarioDati(lega));
    // The records go over the start of the old file: what lies beyond them stays.
    QFile vecchio(percorso);
    if (vecchio.exists()) {
        if (!vecchio.open(QIODevice::ReadOnly))
            throw ErroreEsecuzione(u"Impossibile leggere il file %1."_s.arg(percorso));
        const QByteArray prima = vecchio.readAll();
        if (prima.size() > byte.size())
            byte.append(prima.mid(byte.size()));
    }
    FileDati::scriviByte(percorso, byte);
    return calendario;
}

FileCampionati::Calendario FileCampionati::leggiCalendario(const QString &cartella,
                                                           const Leghe::Lega &lega) {
    const QString percorso = FileDati::percorso(cartella, Leghe::fileCalendarioDati(lega));
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        throw ErroreEsecuzione(u"Impossibile leggere il file %1."_s.arg(percorso));
    return decodificaCalendario(file.readAll(), lega);
}

FileCampionati::Calendario FileCampionati::leggiCalendarioFinoAllaFine(const QString &cartella,
                                                                       const Leghe::Lega &lega) {
    QFile file(FileDati::percorso(cartella, Leghe::fileCalendarioDati(lega)));
    if (!file.open(QIODevice::ReadOnly))
        return decodificaCalendario({}, lega, true);
    return decodificaCalendario(file.readAll(), lega, true);
}
