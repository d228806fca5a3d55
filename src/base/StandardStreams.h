#pragma once

/// Takes the places of the standard streams that the program was started without, so that no file
/// which is opened later stands there and gets what is meant for a terminal. Reading and writing
/// them fails as before. To be called before anything else is opened.
void occupyStandardStreams();
