#include "schedine/pronostico.h"

using namespace Qt::StringLiterals;

namespace {

bool segno(QChar c) {
    return c == u'1' || c == u'2' || c == u'X' || c == u'x';
}

bool ripetuto(const QString &casella) {
    for (qsizetype i = 0; i < casella.size(); ++i)
        if (casella.indexOf(casella.at(i), i + 1) >= 0)
            return true;
    return false;
}

} // namespace

bool Pronostico::tastoAmmesso(QChar tasto) {
    return segno(tasto) || tasto == u'\b';
}

Pronostico::Esito Pronostico::controlla(const QStringList &caselle) {
    for (const QString &c : caselle)
        if (c.isEmpty())
            return Esito::CasellaVuota;
    for (const QString &c : caselle)
        if (ripetuto(c))
            return Esito::SegnoRipetuto;
    for (const QString &c : caselle)
        for (const QChar s : c)
            if (!segno(s))
                return c.size() == 1 ? Esito::SegnoNonValido : Esito::SegnoNonValidoSenzaMessaggio;
    return Esito::Salvabile;
}

QString Pronostico::messaggio(Esito esito) {
    switch (esito) {
    case Esito::CasellaVuota:
        return u"Attenzione. Una o più caselle del pronostico sono vuote."_s;
    case Esito::SegnoRipetuto:
        return u"Controllare il pronostico. Una o più caselle del pronostico contengono segni "
               "non validi."_s;
    case Esito::SegnoNonValido:
        return u"Controllare il pronostico. Alcune caselle contengono segni non validi."_s;
    case Esito::Salvabile:
        return u"Il sistema è stato salvato correttamente."_s;
    case Esito::SegnoNonValidoSenzaMessaggio:
        break;
    }
    return {};
}

QStringList Pronostico::righe(const QStringList &caselle) {
    QStringList r;
    for (const QString &c : caselle)
        r.append(c.toUpper());
    return r;
}

QString Pronostico::rigaStampa(const QStringList &caselle) {
    QString riga;
    for (qsizetype i = 0; i < caselle.size(); ++i) {
        riga += caselle.at(i) + u' ';
        if (i == 2 || i == 5 || i == 8)
            riga += u'-';
    }
    return riga;
}
