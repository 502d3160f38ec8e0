# Finds every operation of the host that the module calls, and gives each a place where a fault can be
# put. Arguments: MODULE, the module as one object; HOST, the host library; NM, OBJCOPY; OUT, a folder.
# Writes to OUT: faulty.o, the module with those calls renamed; places.S, what they now reach;
# places.inc, their names.
#
# A new call of the host is found by itself. Left out are destructors, from which the language lets no
# exception out, what moc makes, which is no operation of the host, signals, whose address is compared
# and not called, and painting, which Qt calls and no exception may leave.
#
# An operation for which places.cpp defines "ended" and its symbol is called from there, which tells of
# its end as well.
cmake_policy(VERSION 3.25)
execute_process(COMMAND ${NM} -u ${MODULE} OUTPUT_VARIABLE undefined COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${NM} -D --defined-only ${HOST} OUTPUT_VARIABLE defined
    COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "_Z[A-Za-z0-9_]+" wanted "${undefined}")
string(REGEX MATCHALL "[0-9a-f]+ T _Z[A-Za-z0-9_]+" functions "${defined}")
list(TRANSFORM functions REPLACE "^.* T " "")

set(places "")
foreach(symbol IN LISTS wanted)
    if(symbol IN_LIST functions AND
       NOT symbol MATCHES "D[012]Ev$|qt_metacall|qt_metacast|metaObject|paintEvent|[0-9]signal")
        list(APPEND places ${symbol})
    endif()
endforeach()
list(REMOVE_DUPLICATES places)
list(SORT places)
list(LENGTH places count)
if(count LESS 50)
    message(FATAL_ERROR "Only ${count} operations of the host found in ${MODULE}")
endif()

file(READ ${CMAKE_CURRENT_LIST_DIR}/places.cpp own)
string(REGEX MATCHALL "ended_Z[A-Za-z0-9_]+" unmatched "${own}")
set(renames "")
set(code "#include \"place.S.inc\"\n")
set(names "")
set(index 0)
foreach(symbol IN LISTS places)
    # The first page's own operations are virtual: what the module gets leads through places as well.
    set(target ${symbol})
    if(symbol MATCHES "10GetService")
        set(target firstPageThroughPlaces)
    endif()
    set(tells_end false)
    if(own MATCHES "ended${symbol}\\(")
        set(target ended${symbol})
        set(tells_end true)
        list(REMOVE_ITEM unmatched ended${symbol})
    endif()
    string(APPEND renames "${symbol} fault_${symbol}\n")
    string(APPEND code "place ${index}, fault_${symbol}, ${target}\n")
    string(APPEND names "{\"${symbol}\", ${tells_end}},\n")
    math(EXPR index "${index} + 1")
endforeach()
if(unmatched)
    message(FATAL_ERROR "places.cpp tells of the end of what the module does not call: ${unmatched}")
endif()
file(CONFIGURE OUTPUT ${OUT}/renames.txt CONTENT "${renames}" @ONLY)
file(CONFIGURE OUTPUT ${OUT}/places.S CONTENT "${code}" @ONLY)
file(CONFIGURE OUTPUT ${OUT}/places.inc CONTENT "${names}" @ONLY)
execute_process(COMMAND ${OBJCOPY} --redefine-syms=${OUT}/renames.txt ${MODULE} ${OUT}/faulty.o
    COMMAND_ERROR_IS_FATAL ANY)
