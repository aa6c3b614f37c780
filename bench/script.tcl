# The programs of ScriptBench.cpp in Tcl; prints the median of five runs of each in milliseconds.

proc additions {} {
  set n 0
  for {set i 0} {$i < 1000000} {incr i} {
    set n [expr {$n + 1}]
  }
  return $n
}

proc texts {} {
  set t ""
  for {set i 0} {$i < 100000} {incr i} {
    append t piece
  }
  return [string length $t]
}

proc lists {} {
  set list {}
  for {set i 1} {$i <= 100000} {incr i} {
    lappend list $i
  }
  set total 0
  foreach x $list {
    set total [expr {$total + $x}]
  }
  return $total
}

proc fib {n} {
  if {$n < 2} {
    return $n
  }
  return [expr {[fib [expr {$n - 1}]] + [fib [expr {$n - 2}]]}]
}

proc measure {name program expected} {
  for {set run 0} {$run < 5} {incr run} {
    lappend times [lindex [time {set result [eval $program]}] 0]
    if {$result != $expected} {
      error "$name gives $result"
    }
  }
  puts "$name [expr {[lindex [lsort -real $times] 2] / 1000.0}]"
}

measure additions additions 1000000
measure texts texts 500000
measure lists lists 5000050000
measure fib {fib 25} 75025
