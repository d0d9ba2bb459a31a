#pragma once

#include "embedded/venue/VenueBoard.h"
#include "embedded/venue/VenueDay.h"

namespace quorin {

// Finds out which symbols share a process.
void GroupFamilies(TVenueBoard& board);

// Chooses what happens in the day, in the order of time: per exchange with price limits some
// processes that run to the upper and some that run to the lower limit, and per exchange some
// shares that are stopped. Small exchanges have one of each, tiny ones none.
void PlanIncidents(TVenueBoard& board, const TVenueDay& day, TVenueRandom& random);

} // namespace quorin
