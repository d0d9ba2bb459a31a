  #  include   "viewdata/market/Quotes.h"  // indented
