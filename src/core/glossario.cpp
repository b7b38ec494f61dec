#include "core/glossario.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QString Glossario::formulaNove() {
    return u"Formula del 9: quanti 1, quanti X e quanti 2 ci sono nelle prime nove partite della "
           "colonna."_s;
}

QString Glossario::formulaQuattordici() {
    return u"Formula del 14: quanti 1, quanti X e quanti 2 ci sono nelle 14 partite della "
           "colonna."_s;
}

QString Glossario::interruzioni() {
    return u"Interruzioni: quante volte il segno cambia da una partita alla successiva, nelle 14 "
           "partite (da 0 a 13)."_s;
}

QString Glossario::simmetrie() {
    return u"Simmetrie: quante delle 7 coppie di partite speculari (1ª e 14ª, 2ª e 13ª, … 7ª e "
           "8ª) hanno lo stesso segno."_s;
}

QString Glossario::parallele() {
    return u"Parallele: quante delle 7 coppie di partite a distanza di sette (1ª e 8ª, 2ª e 9ª, "
           "… 7ª e 14ª) hanno lo stesso segno."_s;
}

QString Glossario::partiteTerzina(int n) {
    return u"partite %1-%2"_s.arg(3 * n - 2).arg(3 * n);
}

QString Glossario::terzina(int quante) {
    QStringList terzine;
    for (int n = 1; n <= quante; ++n)
        terzine.append(u"%1ª: %2"_s.arg(n).arg(partiteTerzina(n)));
    return u"Terzina: i segni di tre partite consecutive della colonna (%1)."_s.arg(
        terzine.join(u", "_s));
}

QString Glossario::cinquina() {
    return u"Cinquina finale: i segni delle ultime cinque partite della colonna (partite "
           "10-14)."_s;
}

QString Glossario::coppia() {
    return u"Coppia finale: i segni delle ultime due partite della colonna (partite 13 e 14)."_s;
}

QString Glossario::ritardo(const QString &cosa, const QString &assente) {
    return u"Ritardo: quanti concorsi sono passati dall'ultima uscita %1 (0 se è uscita "
           "nell'ultimo concorso; %2)."_s.arg(cosa, assente);
}

QString Glossario::frequenza(const QString &cosa, const QString &concorsi) {
    return u"Frequenza: in quanti %1 è uscita %2."_s.arg(concorsi, cosa);
}

QString Glossario::sigla(const QString &sigla, const QString &spiegazione) {
    return sigla + u" = "_s + spiegazione;
}
