import QtQuick

/// The colour of each role on one kind of surface. Palette holds the three sets there are.
QtObject {
    // Surfaces, from the farthest to the nearest.
    required property color page
    required property color side
    required property color card
    required property color raise
    required property color hover
    required property color press
    required property color tint

    // Lines and outlines.
    required property color line
    required property color edge
    required property color control

    // Text and symbols.
    required property color text
    required property color second
    required property color third
    required property color off

    // Accents.
    required property color sage
    required property color lilac
    required property color paper
    required property color clay
    /// The dial before a session.
    required property color ready

    // Filled buttons.
    required property color fill
    required property color fillHover
    required property color fillPress
    required property color inkOnFill

    required property color tick
    /// The badge of the notes.
    required property color paperBadge
    // A switch that is off: its track, also under the pointer, and its knob.
    required property color switchOff
    required property color switchHover
    required property color knob
    /// A chart's bars before today.
    required property color barPast
    /// The outline of a card; clear where the card's own colour sets it apart.
    required property color cardLine
}
