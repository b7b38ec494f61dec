#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <array>

class Rete;

// The short messages that the update site publishes under /comunicazioniVp/, and new.dat, the
// number of the message the user has already seen.
class Messaggi {
public:
    // The seven texts of a message, in the order of its pages.
    enum Campo { Data, Titolo, Riga1, Riga2, Riga3, Riga4, Staff, NumeroCampi };
    using Pagine = std::array<QString, NumeroCampi>;

    static constexpr const char16_t *Cartella = u"/comunicazioniVp/";
    static constexpr const char16_t *FileVisto = u"new.dat";

    // The path of a field's page ("/comunicazioniVp/titolo.htm"), of the latest number and of
    // the link page.
    static QString pagina(Campo campo);
    static QString paginaNumero();
    static QString paginaLink();

    // The leading number of a text, as the site and new.dat write it ("7\r\n" is 7); 0 when it
    // has none.
    static int numero(const QString &testo);
    // A page's pieces: the page trimmed at both ends (its line end), then split on "-". An empty
    // page is one empty piece.
    static QStringList pezzi(const QString &testo);

    // The number in new.dat. At start-up an absent file reads as 0; the screen of the messages
    // needs it, and there its absence is a fault of the file layer.
    static int numeroVisto(const QString &cartellaDati, bool assenteComeZero);
    // Replaces new.dat with that number.
    static void scriviNumeroVisto(const QString &cartellaDati, int numero);

    // What the site says now.
    static int numeroRemoto(Rete &rete);
    static QString ultimoTitolo(Rete &rete);
    // The seven pages in their order (data, titolo, riga1 to riga4, staff), then link.htm.
    static Pagine scaricaPagine(Rete &rete, QString *link = nullptr);

    // The start-up check, without the probe: whether the site has a message newer than new.dat.
    struct Novita {
        bool nuovo = false;
        int locale = 0;
        int remoto = 0;
    };
    static Novita controlla(Rete &rete, const QString &cartellaDati, bool assenteComeZero);
};

// ArchivioComunicazioni: the messages read from the site, oldest first, and the one on show.
// Record k (from 1) holds piece k-1 of each page.
class ArchivioComunicazioni {
public:
    static constexpr int Capacita = 1000;
    using Comunicazione = Messaggi::Pagine;

    // Empties the archive and fills it from the pages: as many records as data.htm has pieces. A
    // page with fewer pieces, or more than Capacita records, is a fault and leaves the archive
    // as it was. The last record is then the one on show.
    void riempi(const Messaggi::Pagine &pagine);
    void svuota();

    int NumeroComunicazioni() const { return int(m_record.size()); }
    int ComunicazioneCorrente() const { return m_corrente; }
    // Record k, from 1.
    const Comunicazione &comunicazione(int k) const;
    const Comunicazione &corrente() const { return comunicazione(m_corrente); }

    // One record on or back; false (and nothing moves) beyond either end.
    bool avanti();
    bool indietro();

private:
    QList<Comunicazione> m_record;
    int m_corrente = 0;
};
