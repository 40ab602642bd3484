# Draws a curve: the medians with their spread, and the ideal as a dashed line.
# Variables: data, picture, count (of the series before the ideal), xaxis, yaxis.

set terminal svg size 720,340 font 'sans-serif,13' background '#fbfbf8'
set output picture
set encoding utf8

set border 3 linecolor rgb '#555555'
set tics nomirror scale 0.5 textcolor rgb '#333333'
set grid linecolor rgb '#dddddd' linetype 1
set key tmargin left vertical reverse Left textcolor rgb '#333333' samplen 2.5
set xlabel xaxis textcolor rgb '#333333'
set ylabel yaxis textcolor rgb '#333333'
set xrange [0:*] noextend
set yrange [0:*] noextend
set offsets graph 0, graph 0.03, graph 0.05, 0

array colours[2] = ['#1f6fb4', '#c4511d']
plot data index count using 1:2 with lines dashtype 2 linewidth 1.5 linecolor rgb '#777777' title columnheader(1), \
     for [i = 1:count] data index i - 1 using 1:2:3:4 with yerrorlines \
       linewidth 1.5 linecolor rgb colours[i] pointtype 7 pointsize 0.5 title columnheader(1)
