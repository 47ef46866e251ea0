#pragma once

#include "docs/menu_document.h"
#include "fakes/fake_document_events.h"
#include "fakes/fake_files.h"
#include "fakes/fake_prompts.h"
#include "fakes/fake_pump.h"
#include "fakes/fake_settings.h"

namespace nv
{

// A document and the fakes about it.
template <typename FilesType = FakeFiles, typename Events = FakeDocumentEvents> struct FakeDesk {
    FilesType files;
    FakePrompts prompts;
    FakeSettings settings;
    FakePump pump;
    Events events;
    CodePage codePage;
    Font font{"Tahoma", 8, false, false, false, false, 238};
    MenuDocument document{files, prompts, settings, pump, events, codePage, font};
};

} // namespace nv
