// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "help_text/program_messages.h"

#include "app/messages.h"
#include "audio/messages.h"
#include "catalogue/messages.h"
#include "cli/messages.h"
#include "core/messages.h"
#include "data/messages.h"
#include "editor/messages.h"
#include "help/messages.h"
#include "help_text/displayed_text.h"
#include "jet/messages.h"
#include "platform/qt/messages.h"
#include "platform/system/messages.h"
#include "print/messages.h"
#include "sandbox/messages.h"
#include "search/messages.h"
#include "views/messages.h"

namespace tonalith::help_text {

std::vector<RoomCatalogue> ProgramCatalogues() {
  return {{"app", CatalogueOf(app::MessageId())},
          {"audio", CatalogueOf(audio::MessageId())},
          {"catalogue", CatalogueOf(catalogue::MessageId())},
          {"cli", CatalogueOf(cli::MessageId())},
          {"core", CatalogueOf(core::MessageId())},
          {"data", CatalogueOf(data::MessageId())},
          {"editor", CatalogueOf(editor::MessageId())},
          {"help", CatalogueOf(help::MessageId())},
          {"jet", CatalogueOf(jet::MessageId())},
          {"platform/qt", CatalogueOf(platform::PrintingMessageId())},
          {"platform/system", CatalogueOf(platform::SystemMessageId())},
          {"print", CatalogueOf(print::MessageId())},
          {"sandbox", CatalogueOf(sandbox::MessageId())},
          {"search", CatalogueOf(search::MessageId())},
          {"views", CatalogueOf(views::MessageId())}};
}

std::map<std::string, std::string> MessagePieces(const std::vector<RoomCatalogue>& catalogues) {
  std::map<std::string, std::string> pieces;
  for (const RoomCatalogue& catalogue : catalogues) {
    for (const core::MessageText& text : catalogue.texts) {
      for (const std::string& piece : PiecesOf(text.english)) pieces.emplace(piece, catalogue.folder);
    }
  }
  return pieces;
}

}  // namespace tonalith::help_text
