#include "archivio/frmarchivio.h"

#include "archivio/scritturearchivio.h"
#include "archivio/stampaarchivio.h"
#include "core/archivio.h"
#include "core/glossario.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/documentopagine.h"
#include "stampa/esportazioneexcel.h"
#include "stampa/frmanteprima.h"

#include <QApplication>
#include <QCursor>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct Intestazione {
    const char *testo;
    int larghezza; // twips
};

constexpr Intestazione Intestazioni[FrmArchivio::Colonne] = {
    {"Anno", 700}, {"Num.", 600},    {"Colonna", 1900}, {"1", 450},       {"X", 450},
    {"2", 450},    {"Interr.", 750}, {"Simm.", 700},    {"Parall.", 750},
};

// What the headers abbreviate: the fields of an archive row.
QString suggerimento(int colonna) {
    const auto segno = [](const QString &s) {
        return u"Quanti %1 ci sono nelle 14 partite della colonna."_s.arg(s);
    };
    switch (colonna) {
    case 1:
        return Glossario::sigla(u"Num."_s, u"Numero del concorso nell'anno."_s);
    case 3:
        return segno(u"1"_s);
    case 4:
        return segno(u"X"_s);
    case 5:
        return segno(u"2"_s);
    case 6:
        return Glossario::sigla(u"Interr."_s, Glossario::interruzioni());
    case 7:
        return Glossario::sigla(u"Simm."_s, Glossario::simmetrie());
    case 8:
        return Glossario::sigla(u"Parall."_s, Glossario::parallele());
    default:
        return {};
    }
}

} // namespace

FrmArchivio::FrmArchivio(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_griglia(new Griglia(1, Colonne, this)) {
    setObjectName(u"frmArchivio"_s);
    setWindowTitle(QString::fromUtf8(Titolo));

    m_griglia->setRigheFisse(1);
    for (int c = 0; c < Colonne; ++c)
        m_griglia->setLarghezzaColonna(c, Intestazioni[c].larghezza);
    // The counts of "1", "X" and "2".
    for (int c = 3; c <= 5; ++c)
        m_griglia->setAllineamentoColonna(c, Griglia::Allineamento::CentroCentro);
    riempi();

    m_vista = new VistaGriglia(this);
    m_vista->setObjectName(u"Griglia"_s);
    m_vista->setGriglia(m_griglia);
    m_vista->adattaLarghezza();
    m_vista->setMinimumHeight(420);
    // The column of the 14 signs sorts as text; the others are numbers.
    m_ordine.setColonneTesto({2});
    m_vista->ordinaConClicIntestazione(&m_ordine);

    auto *label1 = new QLabel(u"Colonne vincenti"_s, this);
    label1->setObjectName(u"Label1"_s);
    MdiStile::titolo(label1, 1.2);

    auto *imgStampa = new QPushButton(style()->standardIcon(QStyle::SP_FileDialogDetailedView),
                                      u"Stampa"_s, this);
    imgStampa->setObjectName(u"imgStampa"_s);
    imgStampa->setToolTip(u"Stampa"_s);
    auto *command1 = new QPushButton(u"carica database"_s, this);
    command1->setObjectName(u"Command1"_s);
    auto *command2 = new QPushButton(u"Crea HTM"_s, this);
    command2->setObjectName(u"Command2"_s);
    imgStampa->setCursor(Qt::PointingHandCursor);
    connect(imgStampa, &QPushButton::clicked, this, [this] {
        eseguiProtetto(m_stato.dialoghi(), [this] {
            m_stato.OrientamentoPagina = u"verticale"_s;
            DocumentoPagine documento;
            StampaArchivio::scrivi(documento, m_stato.ColonneArchivio, EsportazioneExcel::oggi());
            FrmAnteprima::avvia(m_stato,
                                m_stato.registro() ? m_stato.registro()->finestra() : window());
        });
    });
    // The right button hands the whole archive to the export, without a limit.
    connect(m_vista, &VistaGriglia::tastoDestro, this, [this] {
        eseguiProtetto(m_stato.dialoghi(), [this] {
            EsportazioneExcel::prepara(m_stato, *m_griglia,
                                       u"Archivio Colonne vincenti Totocalcio, alla data "_s +
                                           EsportazioneExcel::oggi());
            if (m_stato.registro())
                m_stato.registro()->apriMenuGriglie(QCursor::pos());
        });
    });
    MdiTastiera::stampa(this, imgStampa);
    connect(command1, &QPushButton::clicked, this, &FrmArchivio::caricaDatabase);
    connect(command2, &QPushButton::clicked, this, &FrmArchivio::creaHtm);

    auto *pulsanti = new QHBoxLayout;
    pulsanti->addWidget(imgStampa);
    pulsanti->addStretch();
    pulsanti->addWidget(command1);
    pulsanti->addWidget(command2);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(label1);
    layout->addWidget(m_vista, 1);
    layout->addLayout(pulsanti);
}

FrmArchivio::~FrmArchivio() = default;

void FrmArchivio::riempi() {
    const ArchivioColonne &archivio = m_stato.ColonneArchivio;
    const auto blocco = m_griglia->inBlocco();
    m_griglia->setRighe(archivio.numero() + 1);
    for (int c = 0; c < Colonne; ++c) {
        m_griglia->setTesto(0, c, QString::fromUtf8(Intestazioni[c].testo));
        m_griglia->setSuggerimento(0, c, suggerimento(c));
    }
    for (int i = 0; i < archivio.numero(); ++i) {
        const RigaArchivio &r = archivio.riga(i);
        for (int c = 0; c < Colonne; ++c)
            m_griglia->setTesto(i + 1, c, r[c]);
    }
}

void FrmArchivio::caricaDatabase() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const auto cursore = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
        Archivio::ricaricaTabella(m_stato);
    });
}

void FrmArchivio::creaHtm() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        // The page has the form of the site's archive page, and is proposed under its name.
        const QString percorso = m_stato.dialoghi().salvaFile(m_stato.impostazioni(), u"Crea HTM"_s,
                                                              u"Pagina HTML (*.htm *.html)"_s,
                                                              u"ColonneTotocalcio.htm"_s);
        if (percorso.isEmpty())
            return;
        ScrittureArchivio::scriviPaginaArchivio(percorso, m_stato.ColonneArchivio);
        m_stato.dialoghi().fileSalvato(m_stato.impostazioni(), percorso);
    });
}
