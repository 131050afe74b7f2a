#pragma once
// Texts that break whatever pastes them into something else: a statement, a line, a document, a file name.

#include <QString>
#include <QStringList>
#include <random>
#include <vector>

/// A text and what it tries; `que` is unique.
struct TextoFeo {
    const char *que = "";
    QString texto;
};

/// Every kind once, none of them empty: quotes, comment marks, words of SQL, wild cards, control and
/// direction marks, halves of pairs, what other formats take for theirs, and very long ones.
const std::vector<TextoFeo> &TextosFeos();

/// Whether an argument of a process can carry the text: no zero character, no half of a pair.
bool CabeEnArgumento(const QString &texto);

/// The text with what cannot be seen written as "\u0007", cut when it is long: for what a test says.
QString Visto(const QString &texto);

/// Whether a text for a user has words that only a store says: something that was typed became a piece of a
/// statement.
bool TienePalabrasDeMotor(const QString &texto);

/// Choices that can be made again: the seed is ZENDRA_SEMILLA of the environment, or always the same.
class Azar {
 public:
    Azar();
    quint32 semilla() const { return semilla_; }
    std::size_t menorQue(std::size_t n);
    /// Two to four texts of the table in a row, long ones left out, some between letters.
    QString mezcla();

 private:
    quint32 semilla_;
    std::mt19937 azar_;
};

/// Texts of the table and mixtures by turns, so that many users of few of them see all of the table. Where it
/// begins is the seed's.
class Ronda {
 public:
    explicit Ronda(Azar &azar) : azar_(azar), vez_(azar.menorQue(TextosFeos().size())) {}
    QString siguiente();

 private:
    Azar &azar_;
    std::size_t vez_;
};
