<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: BSD-3-Clause -->
<TS version="2.1" language="de">
<context>
    <name>BatchStore</name>
    <message>
        <source>it is damaged</source>
        <translation>sie ist beschädigt</translation>
    </message>
    <message>
        <source>The unfinished batch in %1 cannot be read: %2.</source>
        <translation>Die unfertige Charge in %1 kann nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>It is kept as %1.</source>
        <translation>Sie bleibt als %1 erhalten.</translation>
    </message>
    <message>
        <source>the folder cannot be made</source>
        <translation>der Ordner kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>The batch cannot be written to %1: %2.</source>
        <translation>Die Charge kann nicht in %1 geschrieben werden: %2.</translation>
    </message>
</context>
<context>
    <name>ComponentsItem</name>
    <message>
        <source>Components</source>
        <translation>Komponenten</translation>
    </message>
    <message>
        <source>Formulation</source>
        <translation>Rezeptieren</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Soll</translation>
    </message>
    <message>
        <source>Not weighed in</source>
        <translation>Nicht eingewogen</translation>
    </message>
    <message>
        <source>Actual</source>
        <translation>Ist</translation>
    </message>
    <message>
        <source>Deviation</source>
        <translation>Abweichung</translation>
    </message>
    <message>
        <source>Out of tolerance</source>
        <translation>Außer Toleranz</translation>
    </message>
</context>
<context>
    <name>FormulationMenu</name>
    <message>
        <source>Recipe</source>
        <translation>Rezept</translation>
    </message>
    <message>
        <source>Default tolerance</source>
        <translation>Standardtoleranz</translation>
    </message>
    <message>
        <source>Refuse what is out of tolerance</source>
        <translation>Ablehnen, was außer Toleranz ist</translation>
    </message>
    <message>
        <source>Formulation</source>
        <translation>Rezeptieren</translation>
    </message>
</context>
<context>
    <name>FormulationPlugin</name>
    <message>
        <source>Print-outs</source>
        <translation>Ausdrucke</translation>
    </message>
    <message>
        <source>Formulation</source>
        <translation>Rezeptieren</translation>
    </message>
    <message>
        <source>Batch %1 was interrupted</source>
        <translation>Charge %1 wurde unterbrochen</translation>
    </message>
    <message>
        <source>%1: %2 of %3 components are weighed in. Resume it, or discard it and keep its record.</source>
        <translation>%1: %2 von %3 Komponenten sind eingewogen. Setzen Sie sie fort, oder verwerfen Sie sie; ihre Aufzeichnung bleibt erhalten.</translation>
    </message>
    <message>
        <source>There is no recipe</source>
        <translation>Es gibt kein Rezept</translation>
    </message>
    <message>
        <source>%1, together %2 g</source>
        <translation>%1, zusammen %2 g</translation>
    </message>
    <message>
        <source>1 component</source>
        <translation>1 Komponente</translation>
    </message>
    <message>
        <source>%1 components</source>
        <translation>%1 Komponenten</translation>
    </message>
    <message>
        <source>Batch %1 is complete: %2 g</source>
        <translation>Charge %1 ist fertig: %2 g</translation>
    </message>
    <message>
        <source>Batch %1 was aborted; its record with %2 of %3 components is kept.</source>
        <translation>Charge %1 wurde abgebrochen; ihre Aufzeichnung mit %2 von %3 Komponenten bleibt erhalten.</translation>
    </message>
    <message>
        <source>Aborted before anything was weighed in.</source>
        <translation>Abgebrochen, bevor etwas eingewogen war.</translation>
    </message>
    <message>
        <source>There is no batch to print yet.</source>
        <translation>Es gibt noch keine Charge zum Drucken.</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Batch %1</source>
        <translation>Charge %1</translation>
    </message>
    <message>
        <source>at work</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>Previous recipe</source>
        <translation>Voriges Rezept</translation>
    </message>
    <message>
        <source>Next recipe</source>
        <translation>Nächstes Rezept</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Null</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fort­setzen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
</context>
<context>
    <name>FormulationProtocol</name>
    <message>
        <source>Formulation</source>
        <translation>Rezeptieren</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Formulation record</source>
        <translation>Rezeptierprotokoll</translation>
    </message>
    <message>
        <source>Recipe</source>
        <translation>Rezept</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>Charge</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Unterschrift</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Batch complete</source>
        <translation>Charge fertig</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Total deviation</source>
        <translation>Gesamtabweichung</translation>
    </message>
    <message>
        <source>complete</source>
        <translation>fertig</translation>
    </message>
    <message>
        <source>aborted</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>unfinished</source>
        <translation>unfertig</translation>
    </message>
</context>
<context>
    <name>FormulationScreen</name>
    <message>
        <source>No weight</source>
        <translation>Kein Gewicht</translation>
    </message>
    <message>
        <source>Still to add</source>
        <translation>Noch zugeben</translation>
    </message>
    <message>
        <source>Within tolerance</source>
        <translation>In Toleranz</translation>
    </message>
    <message>
        <source>Too much</source>
        <translation>Zu viel</translation>
    </message>
    <message>
        <source>g off the target</source>
        <translation>g neben dem Soll</translation>
    </message>
</context>
<context>
    <name>FormulationViewModel</name>
    <message>
        <source>NET</source>
        <translation>NETTO</translation>
    </message>
    <message>
        <source>PT</source>
        <translation>PT</translation>
    </message>
</context>
<context>
    <name>Procedure</name>
    <message>
        <source>%1 cannot be weighed in: it needs %2, the scale goes up to %3.</source>
        <translation>%1 kann nicht eingewogen werden: Es braucht %2, die Waage reicht bis %3.</translation>
    </message>
    <message>
        <source>%1 cannot be weighed in: the scale shows no weight between %2 g and %3 g. Widen the tolerance of the recipe.</source>
        <translation>%1 kann nicht eingewogen werden: Die Waage zeigt kein Gewicht zwischen %2 g und %3 g. Vergrößern Sie die Toleranz im Rezept.</translation>
    </message>
    <message>
        <source>The scale shows less than nothing. Empty it and set it to zero.</source>
        <translation>Die Waage zeigt weniger als nichts. Leeren Sie sie und stellen Sie sie auf null.</translation>
    </message>
    <message>
        <source>Nothing is on the scale.</source>
        <translation>Auf der Waage steht nichts.</translation>
    </message>
    <message>
        <source>The vessel is too heavy: with %1 of the recipe the scale would go beyond %2.</source>
        <translation>Das Gefäß ist zu schwer: Mit %1 des Rezepts käme die Waage über %2.</translation>
    </message>
    <message>
        <source>Waiting for a stable weight</source>
        <translation>Wartet auf ein stabiles Gewicht</translation>
    </message>
    <message>
        <source>%1 are missing.</source>
        <translation>Es fehlen %1.</translation>
    </message>
    <message>
        <source>Add %1 of %2</source>
        <translation>%1 %2 zugeben</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>The batch could not be saved</source>
        <translation>Die Charge konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>%1: within the tolerance now</source>
        <translation>%1: jetzt in der Toleranz</translation>
    </message>
    <message>
        <source>Press Repeat</source>
        <translation>Wiederholen drücken</translation>
    </message>
    <message>
        <source>Refused: %1 too much</source>
        <translation>Abgelehnt: %1 zu viel</translation>
    </message>
    <message>
        <source>Take some out, press Repeat</source>
        <translation>Herausnehmen, dann Wiederholen</translation>
    </message>
    <message>
        <source>Refused: %1 too little</source>
        <translation>Abgelehnt: %1 zu wenig</translation>
    </message>
    <message>
        <source>Add some, press Repeat</source>
        <translation>Zugeben, dann Wiederholen</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Weighed in</source>
        <translation>Eingewogen</translation>
    </message>
    <message>
        <source>Deviation (%1 %)</source>
        <translation>Abweichung (%1 %)</translation>
    </message>
    <message>
        <source>Taring</source>
        <translation>Tarieren</translation>
    </message>
    <message>
        <source>Resuming</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Dosing</source>
        <translation>Dosieren</translation>
    </message>
    <message>
        <source>Batch %1</source>
        <translation>Charge %1</translation>
    </message>
    <message>
        <source>Batch %1: %2</source>
        <translation>Charge %1: %2</translation>
    </message>
    <message>
        <source>Put the empty vessel on the scale</source>
        <translation>Leeres Gefäß auf die Waage stellen</translation>
    </message>
    <message>
        <source>Vessel is on</source>
        <translation>Gefäß steht</translation>
    </message>
    <message>
        <source>Put the vessel with its contents back</source>
        <translation>Gefäß mit Inhalt zurückstellen</translation>
    </message>
    <message>
        <source>%1, %2 of %3 components are weighed in: together with the vessel %4</source>
        <translation>%1, %2 von %3 Komponenten sind eingewogen: mit dem Gefäß %4</translation>
    </message>
    <message>
        <source>%1 is complete</source>
        <translation>%1 ist fertig</translation>
    </message>
    <message>
        <source>1 component weighed in</source>
        <translation>1 Komponente eingewogen</translation>
    </message>
    <message>
        <source>%1 components weighed in</source>
        <translation>%1 Komponenten eingewogen</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Accept</source>
        <translation>Über­nehmen</translation>
    </message>
    <message>
        <source>%1 is weighed in</source>
        <translation>%1 ist eingewogen</translation>
    </message>
    <message>
        <source>Component %1 of %2, target %3</source>
        <translation>Komponente %1 von %2, Soll %3</translation>
    </message>
    <message>
        <source>Out of tolerance</source>
        <translation>Außer Toleranz</translation>
    </message>
    <message>
        <source>Next component</source>
        <translation>Nächste Kompo­nente</translation>
    </message>
    <message>
        <source>Complete the batch</source>
        <translation>Charge abschließen</translation>
    </message>
</context>
<context>
    <name>RecipeFile</name>
    <message>
        <source>&quot;recipes&quot; must be a list of recipes</source>
        <translation>„recipes“ muss eine Liste von Rezepten sein</translation>
    </message>
    <message>
        <source>there are no recipes; at least one is needed</source>
        <translation>es gibt keine Rezepte; mindestens eines ist nötig</translation>
    </message>
    <message>
        <source>there is a recipe &quot;%1&quot; already; give it another name</source>
        <translation>ein Rezept „%1“ gibt es schon; geben Sie ihm einen anderen Namen</translation>
    </message>
    <message>
        <source>a recipe must be an object with &quot;name&quot; and &quot;components&quot;</source>
        <translation>ein Rezept muss ein Objekt mit „name“ und „components“ sein</translation>
    </message>
    <message>
        <source>&quot;components&quot; must be a list of components</source>
        <translation>„components“ muss eine Liste von Komponenten sein</translation>
    </message>
    <message>
        <source>a recipe has 1 to %1 components, this one %2</source>
        <translation>ein Rezept hat 1 bis %1 Komponenten, dieses %2</translation>
    </message>
    <message>
        <source>there is a component &quot;%1&quot; already; give it another name, such as &quot;%1 (2)&quot;</source>
        <translation>eine Komponente „%1“ gibt es schon; geben Sie ihr einen anderen Namen, etwa „%1 (2)“</translation>
    </message>
    <message>
        <source>a component must be an object with &quot;name&quot; and &quot;target_g&quot;</source>
        <translation>eine Komponente muss ein Objekt mit „name“ und „target_g“ sein</translation>
    </message>
    <message>
        <source>&quot;name&quot; must be a text that is not empty</source>
        <translation>„name“ muss ein Text sein, der nicht leer ist</translation>
    </message>
    <message>
        <source>the name has %1 characters; at most %2 are possible</source>
        <translation>der Name hat %1 Zeichen; höchstens %2 sind möglich</translation>
    </message>
    <message>
        <source>a name cannot hold a semicolon; use a comma</source>
        <translation>ein Name kann kein Semikolon enthalten; nehmen Sie ein Komma</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a number greater than 0, at most %2%3</source>
        <translation>„%1“ muss eine Zahl größer als 0 sein, höchstens %2%3</translation>
    </message>
    <message>
        <source>; it is %1</source>
        <translation>; es ist %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not known here; known are: %2</source>
        <translation>„%1“ ist hier nicht bekannt; bekannt sind: %2</translation>
    </message>
    <message>
        <source>the recipes cannot be read: %1</source>
        <translation>die Rezepte können nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>the file is larger than %1 MB</source>
        <translation>die Datei ist größer als %1 MB</translation>
    </message>
    <message>
        <source>this is no JSON: %1</source>
        <translation>das ist kein JSON: %1</translation>
    </message>
    <message>
        <source>the file must be an object with the list &quot;recipes&quot;</source>
        <translation>die Datei muss ein Objekt mit der Liste „recipes“ sein</translation>
    </message>
</context>
</TS>
