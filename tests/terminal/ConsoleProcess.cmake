# Runs CONSOLE with good and bad words and looks at its status and its two streams.
# -D CONSOLE=<program> -D SCRATCH=<folder>

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE "${SCRATCH}")
file(MAKE_DIRECTORY "${SCRATCH}")
set(header "time,symbol,event,price,qty,bid,bid_qty,ask,ask_qty\n")
string(
    CONCAT tiny
    "${header}"
    "34200.0,TINY,Q,,,10.00,500,10.02,300\n"
    "34200.1,TINY,T,10.02,100,,,,\n"
    "34200.4,TINY,T,10.00,200,,,,\n"
)
file(WRITE "${SCRATCH}/tiny.csv" "${tiny}")
file(WRITE "${SCRATCH}/header.csv" "a,b\n")
file(WRITE "${SCRATCH}/empty.csv" "")
file(WRITE "${SCRATCH}/lineless.csv" "${header}")
file(WRITE "${SCRATCH}/good.ini" "[quorin.terminal]\nAmountPrecision=2\n")
set(columns "symbol,name,exchange,series,category,product_type,currency,lot,tick,expiry,strike,")
string(APPEND columns "call_put,underlyer,contract_size\n")
file(WRITE "${SCRATCH}/tickless.csv" "${columns}A1,One,X,S,1,1,USD,10,0,,,,,\n")
file(WRITE "${SCRATCH}/own.csv" "${columns}A1,\"One, first\",X,S,1,1,USD,10,0.05,,,,,\n")
file(WRITE "${SCRATCH}/broken.ini" "[a\nb\n")
string(RANDOM LENGTH 20000 ALPHABET "ab,\"\n;01.-T" RANDOM_SEED 7 garbage)
file(WRITE "${SCRATCH}/garbage.csv" "${header}${garbage}")

set(failures 0)
function(report name what)
    message("${name}: ${what}")
    math(EXPR count "${failures} + 1")
    set(failures ${count} PARENT_SCOPE)
endfunction()

# Status 2, one line of complaint, nothing else.
function(refuses name)
    execute_process(
        COMMAND "${CONSOLE}" ${ARGN}
        WORKING_DIRECTORY "${SCRATCH}"
        RESULT_VARIABLE status
        OUTPUT_VARIABLE out
        ERROR_VARIABLE err
    )
    if(NOT status STREQUAL "2")
        report("${name}" "ended with ${status}")
    elseif(NOT out STREQUAL "")
        report("${name}" "printed: ${out}")
    elseif(NOT err MATCHES "^quorin-console: [^\n]+\n$")
        report("${name}" "complained: ${err}")
    endif()
    set(failures ${failures} PARENT_SCOPE)
endfunction()

refuses("unknown option" --bogus)
refuses("stray word" tiny.csv)
refuses("poll of zero" --poll 0)
refuses("poll of nothing" --poll)
refuses("frames of zero" --frames 0)
refuses("frames in words" --frames many)
refuses("no recording" --replay missing.csv)
refuses("a folder as recording" --replay .)
refuses("wrong header" --replay header.csv)
refuses("empty recording" --replay empty.csv)
refuses("recording without lines" --replay lineless.csv)
refuses("no settings" --replay tiny.csv --settings missing.ini)
refuses("broken settings" --replay tiny.csv --settings broken.ini)
refuses("unknown symbol" --replay tiny.csv --trades NOBODY)
refuses("sides into no folder" --replay tiny.csv --sides missing/out.csv)
refuses("sides over the recording" --replay tiny.csv --sides ./tiny.csv)
refuses("sides over the settings" --replay tiny.csv --settings good.ini --sides good.ini)
refuses("no universe" --universe missing.csv)
refuses("universe with another header" --universe header.csv)
refuses("universe with a tick of 0" --universe tickless.csv)
refuses("no script" --script missing.txt)
refuses("a folder as script" --script .)
refuses("a script and frames" --script missing.txt --frames 1)
refuses("a script and a recording" --script missing.txt --replay tiny.csv)
refuses("an answer that is none" --answer maybe)
refuses("no such form" --form chart)
refuses("an account form of a recording" --replay tiny.csv --form cash)
refuses("no such account" --form cash --account NOBODY --frames 1)
refuses("no such exchange" --exchange NOWHERE --frames 1)

# Status 0 and `last` as the end of the output, the same twice.
function(plays name last)
    foreach(run IN ITEMS first second)
        execute_process(
            COMMAND "${CONSOLE}" ${ARGN}
            WORKING_DIRECTORY "${SCRATCH}"
            RESULT_VARIABLE status
            OUTPUT_VARIABLE out-${run}
            ERROR_VARIABLE err
        )
    endforeach()
    if(NOT status STREQUAL "0")
        report("${name}" "ended with ${status}: ${err}")
    elseif(NOT out-first STREQUAL out-second)
        report("${name}" "printed something else the second time")
    elseif(NOT out-first MATCHES "${last}$")
        report("${name}" "printed: ${out-first}")
    endif()
    set(failures ${failures} PARENT_SCOPE)
endfunction()

set(summary "deliveries 2\nlines 3, skipped 0\ntrades 2: A 0, B 1, none 1\nsymbols 1\n")
plays("to the end" "${summary}" --replay tiny.csv)
plays("one frame has no summary" "Currency: HKD\n\n\n\n\n" --text --replay tiny.csv --frames 1)
plays("more frames than deliveries" "${summary}" --replay tiny.csv --frames 9)
plays("another exchange" "trades 0: A 0, B 0, none 0\nsymbols 1\n" --replay tiny.csv --exchange XX)
plays("sides to a file" "${summary}" --replay tiny.csv --sides sides.csv)
plays("the venue" "\n" --frames 3 --seed 7)
plays("the position view" "HKD\n\n" --form positionview --frames 3)
plays("late accounts" "[0-9]\n\n" --form allcash --accounts-ready 2 --frames 3 --language 2)
plays("one's own universe" "\n" --universe own.csv --frames 40)
plays("help" "\n" --help)
set(script "${CMAKE_CURRENT_LIST_DIR}/../../data/scripts/first-trades.txt")
plays("the shipped script" "\n" --text --script "${script}" --answer yes)
plays("the shipped script without a yes" "\n" --text --script "${script}" --seed 5)

# A script goes on after a wrong line, says which it was, and ends with 1. Without a terminal every
# question is answered with no.
file(WRITE "${SCRATCH}/wrong.txt" "watch SEHK\nfly\nset ConfirmationPlaceOrd y\nbuy market 0\n")
execute_process(
    COMMAND "${CONSOLE}" --script wrong.txt
    WORKING_DIRECTORY "${SCRATCH}"
    RESULT_VARIABLE status
    OUTPUT_VARIABLE out
    ERROR_VARIABLE err
)
if(NOT status STREQUAL "1" OR NOT err MATCHES "^wrong.txt:2: [^\n]+\n$")
    report("wrong line of a script" "ended with ${status}: ${err}")
elseif(NOT out MATCHES "\n> 4 buy market 0\n  question [^\n]+\n  answer   no\n  result   refused\n")
    report("wrong line of a script" "printed: ${out}")
endif()

# Another seed is another market.
foreach(seed IN ITEMS 7 8)
    execute_process(
        COMMAND "${CONSOLE}" --frames 20 --seed ${seed}
        OUTPUT_VARIABLE venue-${seed}
        ERROR_VARIABLE err
    )
endforeach()
if(venue-7 STREQUAL venue-8)
    report("seeds" "make the same market")
endif()

file(READ "${SCRATCH}/sides.csv" sides)
string(
    CONCAT expected
    "poll_time,symbol,time,qty,price,side\n"
    "34200.25,TINY,09:30:00,100,10.02,\n"
    "34200.5,TINY,09:30:00,200,10,B\n"
)
if(NOT sides STREQUAL expected)
    report("sides file" "${sides}")
endif()

# A recording of noise is refused or played, but never ends in a crash.
execute_process(
    COMMAND "${CONSOLE}" --replay garbage.csv
    WORKING_DIRECTORY "${SCRATCH}"
    RESULT_VARIABLE status
    OUTPUT_QUIET ERROR_QUIET
)
if(NOT status MATCHES "^[02]$")
    report("garbage" "ended with ${status}")
endif()

if(failures GREATER 0)
    message(FATAL_ERROR "${failures} cases failed")
endif()
