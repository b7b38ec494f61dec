#include "stampa/stampaschedine.h"

#include "core/colonna.h"
#include "core/numeritesto.h"
#include "piattaforma/dispositivodisegno.h"
#include "piattaforma/erroreesecuzione.h"

using namespace Qt::StringLiterals;

QString StampaSchedine::controlla(const QString &da, const QString &a,
                                  const std::array<QString, 5> &ultime) {
    if (NumeriTesto::valore(da) == 0)
        return u"Attenzione! Non ci sono schedine da stampare."_s;
    for (const QString &casella : ultime)
        if (casella.isEmpty())
            return u"Attenzione! Inserire tutti siegni delle ultime 5 caselle."_s;
    for (int k = 0; k < 5; ++k) {
        const QString &t = ultime[k];
        for (qsizetype p = 0; p + 1 < t.size(); ++p)
            for (qsizetype q = p + 1; q < t.size(); ++q)
                if (t.at(p) == t.at(q))
                    return u"Attenzione! La casella %1 presenta segni uguali."_s.arg(10 + k);
    }
    if (NumeriTesto::valore(a) < NumeriTesto::valore(da))
        return u"Attenzione. Correggere l'inervallo di stampa."_s;
    return {};
}

int StampaSchedine::rigaDi(QStringView segno) {
    // The rows run in the order of the signs: "1", "X", "2".
    return int(Colonna::segni().indexOf(segno));
}

void StampaSchedine::segno(DispositivoDisegno &dispositivo, double x, double y) {
    // The figures pass through 32-bit floats on their own: g++ 12 at -O2 drops a pair of such
    // conversions made together in the constructor of a point (its vectoriser keeps the doubles).
    volatile float x32 = static_cast<float>(x);
    volatile float y32 = static_cast<float>(y);
    dispositivo.cerchiConcentrici(QPointF(x32, y32), Raggi, Qt::black);
}

void StampaSchedine::sagoma(DispositivoDisegno &dispositivo, const Giocata &g, int primaColonna) {
    dispositivo.spessorePenna(1);
    double colonnaY = InizioColonna;
    // The places of the slip after the run's last column go on as if the run went on.
    for (int i = primaColonna; i < primaColonna + ColonnePerSchedina; ++i) {
        colonnaY = avanzaColonna(colonnaY, i);
        double casellaX = InizioCasella;
        for (int k = 0; k < 14; ++k) {
            casellaX -= PassoCasella;
            for (const double riga : RigaSegno)
                dispositivo.cerchio(QPointF(g.posX + casellaX + OrigineX, g.posY + colonnaY + riga),
                                    RaggioSagoma, ColoreSagoma, QColor());
        }
        casellaX -= PassoNove;
        dispositivo.cerchio(QPointF(g.posX + casellaX + OrigineX, g.posY + colonnaY + RigaSegno[0]),
                            RaggioSagoma, ColoreSagoma, QColor());
    }
    dispositivo.spessorePenna(SpessorePenna);
}

void StampaSchedine::disegna(DispositivoDisegno &dispositivo, const Giocata &g, bool conSagoma) {
    dispositivo.spessorePenna(SpessorePenna);
    double colonnaY = InizioColonna;
    const auto marca = [&](double casellaX, int riga) {
        segno(dispositivo, g.posX + casellaX + OrigineX, g.posY + colonnaY + RigaSegno[riga]);
    };
    for (int i = g.prima; i <= g.ultima; ++i) {
        if (conSagoma && colonnaY == InizioColonna)
            sagoma(dispositivo, g, i);
        colonnaY = avanzaColonna(colonnaY, i);
        if (i < 1 || i > g.colonne.size())
            throw ErroreEsecuzione(u"Indice della colonna fuori dall'elenco: %1."_s.arg(i));
        const QString nove = g.colonne.at(i - 1).left(9);
        double casellaX = InizioCasella;
        for (int k = 0; k < 9; ++k) {
            casellaX -= PassoCasella;
            if (k < nove.size())
                if (const int riga = rigaDi(QStringView(nove).mid(k, 1)); riga >= 0)
                    marca(casellaX, riga);
        }
        for (const QString &casella : g.ultime) {
            casellaX -= PassoCasella;
            if (casella.size() > 3)
                continue;
            for (const QChar c : casella)
                if (const int riga = rigaDi(QString(c.toUpper())); riga >= 0)
                    marca(casellaX, riga);
        }
        if (g.nove) {
            casellaX -= PassoNove;
            marca(casellaX, 0);
        }
        if (i % ColonnePerSchedina == 0) {
            dispositivo.nuovaPagina();
            colonnaY = InizioColonna;
        }
    }
    dispositivo.fineDocumento();
}
