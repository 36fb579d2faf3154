// read_misdata: the description file and the learning sample.
//
// Asks for the description file, reads and checks it and the data file it
// names, drops cases whose class is missing, flags missing values, numbers
// the classes and the categories, and fills the sample arrays of the run
// settings. Every fault in the files ends the run after its message. On
// return xdata holds numbers and ydata the class labels as read.
#pragma once

namespace vardel {

void read_misdata();

}  // namespace vardel
