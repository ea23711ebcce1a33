<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: BSD-3-Clause -->
<TS version="2.1" language="de">
<context>
    <name>CountingMenu</name>
    <message>
        <source>Usual count</source>
        <translation>Übliche Stückzahl</translation>
    </message>
    <message>
        <source>Optimise by itself</source>
        <translation>Von selbst optimieren</translation>
    </message>
    <message>
        <source>Delete reference</source>
        <translation>Referenz löschen</translation>
    </message>
    <message>
        <source>Delete the reference?</source>
        <translation>Die Referenz löschen?</translation>
    </message>
    <message>
        <source>Counting</source>
        <translation>Stückzählen</translation>
    </message>
</context>
<context>
    <name>CountingPlugin</name>
    <message>
        <source>Print-outs</source>
        <translation>Ausdrucke</translation>
    </message>
    <message>
        <source>Counting</source>
        <translation>Stückzählen</translation>
    </message>
    <message>
        <source>No reference</source>
        <translation>Keine Referenz</translation>
    </message>
    <message>
        <source>Too many pieces</source>
        <translation>Zu viele Stücke</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Null</translation>
    </message>
    <message>
        <source>Tare</source>
        <translation>Tara</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Referenz</translation>
    </message>
    <message>
        <source>Optimise</source>
        <translation>Optimieren</translation>
    </message>
    <message>
        <source>Parts: %1</source>
        <translation>Teile: %1</translation>
    </message>
    <message>
        <source>Count as target</source>
        <translation>Stückzahl als Ziel</translation>
    </message>
    <message>
        <source>Close pad</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Number pad</source>
        <translation>Ziffern</translation>
    </message>
    <message>
        <source>Piece weight</source>
        <translation>Stückgewicht</translation>
    </message>
    <message>
        <source>Reference parts</source>
        <translation>Referenzteile</translation>
    </message>
    <message>
        <source>Reference weight</source>
        <translation>Referenzgewicht</translation>
    </message>
    <message>
        <source>Right up to</source>
        <translation>Richtig bis</translation>
    </message>
</context>
<context>
    <name>CountingProtocol</name>
    <message>
        <source>Counting</source>
        <translation>Stückzählen</translation>
    </message>
    <message>
        <source>Net</source>
        <translation>Netto</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Stückzahl</translation>
    </message>
    <message>
        <source>Piece weight</source>
        <translation>Stückgewicht</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Referenz</translation>
    </message>
</context>
<context>
    <name>CountingScreen</name>
    <message>
        <source>Only %1</source>
        <translation>Nur %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>CountingSettings</name>
    <message>
        <source>Parts of the reference</source>
        <translation>Teile der Referenz</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Tolerance</source>
        <translation>Toleranz</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keins</translation>
    </message>
</context>
<context>
    <name>CountingViewModel</name>
    <message>
        <source>pcs</source>
        <translation>Stk</translation>
    </message>
    <message>
        <source>%1 missing</source>
        <translation>%1 fehlen</translation>
    </message>
    <message>
        <source>Target reached</source>
        <translation>Ziel erreicht</translation>
    </message>
    <message>
        <source>%1 too many</source>
        <translation>%1 zu viel</translation>
    </message>
    <message>
        <source>Put the counted parts on the scale (%1), then press Reference</source>
        <translation>Die gezählten Teile auflegen (%1), dann „Referenz“ drücken</translation>
    </message>
    <message>
        <source>Counts are right up to %1 pcs</source>
        <translation>Stückzahlen sind bis %1 Stk richtig</translation>
    </message>
    <message>
        <source>Reference too small: ± %1 at %2 pcs. Add up to %3 parts to it, then press Optimise.</source>
        <translation>Referenz zu klein: ± %1 bei %2 Stk. Bis zu %3 Teile dazulegen, dann „Optimieren“ drücken.</translation>
    </message>
    <message>
        <source>Reference too small: ± %1 at %2 pcs. Take a new one with %3 parts.</source>
        <translation>Referenz zu klein: ± %1 bei %2 Stk. Eine neue mit %3 Teilen bilden.</translation>
    </message>
    <message>
        <source>The parts are too light for this scale: ± %1 at %2 pcs</source>
        <translation>Die Teile sind zu leicht für diese Waage: ± %1 bei %2 Stk</translation>
    </message>
    <message>
        <source>Reference taken: %1 pcs, %2 each</source>
        <translation>Referenz übernommen: %1 Stk, je %2</translation>
    </message>
    <message>
        <source>Reference optimised: %1 pcs</source>
        <translation>Referenz optimiert: %1 Stk</translation>
    </message>
    <message>
        <source>Reference deleted</source>
        <translation>Referenz gelöscht</translation>
    </message>
    <message>
        <source>Not taken: wait until the weight is stable</source>
        <translation>Nicht übernommen: auf ein stabiles Gewicht warten</translation>
    </message>
    <message>
        <source>Not taken: no valid weight</source>
        <translation>Nicht übernommen: kein gültiges Gewicht</translation>
    </message>
    <message>
        <source>Not taken: no valid count</source>
        <translation>Nicht übernommen: keine gültige Stückzahl</translation>
    </message>
    <message>
        <source>Not taken: the weight is negative. Set zero or tare first.</source>
        <translation>Nicht übernommen: Das Gewicht ist negativ. Erst nullstellen oder tarieren.</translation>
    </message>
    <message>
        <source>Not taken: the parts weigh less than %1</source>
        <translation>Nicht übernommen: Die Teile wiegen weniger als %1</translation>
    </message>
    <message>
        <source>Take a reference first</source>
        <translation>Erst eine Referenz bilden</translation>
    </message>
    <message>
        <source>Not optimised: put more than %1 parts on the scale</source>
        <translation>Nicht optimiert: mehr als %1 Teile auflegen</translation>
    </message>
    <message>
        <source>Not optimised: add at most %1 parts to the reference at once</source>
        <translation>Nicht optimiert: höchstens %1 Teile auf einmal zur Referenz dazulegen</translation>
    </message>
    <message>
        <source>Not optimised: the reference is too small. Take a new one with more parts.</source>
        <translation>Nicht optimiert: Die Referenz ist zu klein. Eine neue mit mehr Teilen bilden.</translation>
    </message>
    <message>
        <source>Not optimised: %1 is no whole number of parts</source>
        <translation>Nicht optimiert: %1 ist keine ganze Zahl von Teilen</translation>
    </message>
    <message>
        <source>Target: %1 pcs</source>
        <translation>Ziel: %1 Stk</translation>
    </message>
    <message>
        <source>There is no target any more</source>
        <translation>Es gibt kein Ziel mehr</translation>
    </message>
    <message>
        <source>Waiting for a stable weight…</source>
        <translation>Warten auf ein stabiles Gewicht…</translation>
    </message>
    <message>
        <source>Count sent</source>
        <translation>Stückzahl gesendet</translation>
    </message>
    <message>
        <source>Not sent: no valid count</source>
        <translation>Nicht gesendet: keine gültige Stückzahl</translation>
    </message>
    <message>
        <source>Check the values: not all could be read from %1</source>
        <translation>Werte prüfen: Nicht alle waren lesbar in %1</translation>
    </message>
    <message>
        <source>The values cannot be kept in %1</source>
        <translation>Die Werte lassen sich nicht speichern in %1</translation>
    </message>
    <message>
        <source>NET</source>
        <translation>NET</translation>
    </message>
    <message>
        <source>PT</source>
        <translation>PT</translation>
    </message>
</context>
</TS>
